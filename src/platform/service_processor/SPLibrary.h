// The way to the service processors (baseboard management controllers) of this machine.
//
// An object is bound to one controller node and holds no descriptor and no session between
// commands; the caller deletes it.
//
//     std::unique_ptr<SPLibrary> node0(SPLibrary::GetSplibraryInstance(0));
//     platform::IpmiBuffer buffer = platform::RequestBuffer(platform::kI2cBusStatus);
//     int length = 250;
//     bool delivered = node0 && node0->sendIPMICommand(buffer.data(), &length, 256, true);
#pragma once

#include <platform/diagnostics/Trouble.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// Report on a command besides its answer.
struct SPExchange {
    int attempts = 0;                          // retries included
    std::optional<platform::Trouble> trouble;  // why no answer came
};

// A controller's share of a run's time: created when the run reaches the controller, and passed to
// every command for it.
struct SPShare {
    std::chrono::steady_clock::time_point begin;
    const std::atomic<bool>* stop = nullptr;  // commands end early once it is true
};

namespace platform {
struct NodeSet;
}

// The controllers of this machine at one moment.
struct SPMachine {
    struct Controller {
        std::string address;  // "inband /dev/ipmi0", "lan HOST:PORT", "simulated"
        bool present = true;  // false: a profile says that there is no library object for it
    };
    std::vector<Controller> controllers;       // in node order
    std::optional<platform::Trouble> trouble;  // why there are none
    bool simulated = false;                    // a profile or settings stand for real hardware
    std::shared_ptr<const platform::NodeSet> nodes;  // how the controllers are reached
};

class SPLibrary {
public:
    // A new object for controller `node` (from 0), or null if the controller does not exist.
    static SPLibrary* GetSplibraryInstance(int node);

    // The controllers as they are now, in the numbers of GetSplibraryInstance(). Asks none of them.
    static SPMachine DescribeMachine();

    // The object for a controller of that description, which stays the same one when devices come
    // and go.
    static SPLibrary* GetSplibraryInstance(int node, const SPMachine& machine);

    virtual ~SPLibrary() = default;

    // The number of controllers of this machine.
    virtual int GetNumberBMCNode() = 0;

    // True when the controllers are of the OXC family; false also when that cannot be found out.
    virtual bool IsOxcControllerMachine() = 0;

    // Why the last IsOxcControllerMachine() could not find out; nothing when it could.
    virtual std::optional<platform::Trouble> FamilyTrouble() const = 0;

    // Sends the request in `buffer` and writes the response over it; IpmiBuffer.h has the layout.
    // `length` becomes 1 + the number of data bytes, and at least 2 when the completion code is not
    // 0, so that the code is judged and not the length.
    // Returns false, with buffer and length untouched, when no answer came.
    virtual bool sendIPMICommand(unsigned char* buffer, int* length, int bufferSize,
                                 bool waitForCompletion) = 0;

    // Of the last sendIPMICommand().
    virtual const SPExchange& LastExchange() const = 0;

    // Later commands belong to this share; without one, each command has its own.
    virtual void Use(const SPShare& share) = 0;
};
