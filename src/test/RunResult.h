// What a run of the I2C bus test found out, as a value. The run fills it where it judges, beside
// the record that CIM clients read; the command, reports and the log read it and nothing else.
//
//     const RunResult result = test.Run("I2C Bus", {});
//     for (const ControllerResult& controller : result.controllers)
//         for (const FailedBus& failed : controller.failedBusses) Show(failed.message.line);
#pragma once

#include <platform/diagnostics/Trouble.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// A numbered line of the test, "166-NUMBER-CONTROLLER HEADING TEXT", and what the catalog
// recommends.
struct ResultMessage {
    std::string line;
    std::vector<std::string> recommendations;

    bool operator==(const ResultMessage&) const = default;
};

// The line and the block of recommendations below it, as records hold them.
std::string TextOf(const ResultMessage& message);

enum class BusState {
    Good,
    Failed,
    Unjudged,  // its bit is set, but whether there is such a bus is not known
};

struct Bus {
    unsigned int number;  // from 0; numbers without a bus are left out
    BusState state;

    bool operator==(const Bus&) const = default;
};

struct FailedBus {
    unsigned int bus;
    ResultMessage message;
};

enum class Outcome {
    NotAsked,
    NotDelivered,    // no answer came
    UnusableAnswer,  // the answer was too short
    Refused,         // the answer had a completion code other than 0
    Examined,
};

// Of an OXC controller.
enum class Generation {
    None,  // not of the OXC family
    First,
    Second,
    Unknown,  // the query was not answered, refused or answered too short; judged like the first
};

struct ControllerResult {
    int node = 0;         // from 0
    std::string address;  // "inband /dev/ipmi0", "lan HOST:PORT", "simulated"
    Outcome outcome = Outcome::NotAsked;
    Generation generation = Generation::None;
    std::optional<int> length;                   // as the transport returned it, when it answered
    std::optional<std::uint8_t> completionCode;  // of a usable answer
    std::vector<std::uint8_t> data;              // the status bytes, also of a Refused
    int attempts = 0;                            // to ask for the bus status, retries included
    std::chrono::milliseconds elapsed{0};        // from the first request to the last answer
    std::vector<Bus> busses;                     // of an Examined, by number
    std::vector<FailedBus> failedBusses;         // the same busses as in `busses`
    bool hasUnusedByte = false;                  // a status byte that is not zero stands for no bus
    std::optional<ResultMessage> message;        // what the test says of it, unless busses failed
    std::optional<platform::Trouble> trouble;    // why it, or some of its busses, was not examined
};

// What the test learned of the machine before it asked a controller.
struct MachineResult {
    std::string type;         // empty when it cannot be read
    std::string biosId;       // the same
    std::optional<bool> oxc;  // of the OXC family; nothing when that could not be found out
    std::string catalog;      // the catalog's file
    bool supported = false;   // the catalog lists type or BIOS identifier
    bool simulated = false;   // a profile or settings stand for real hardware
};

enum class Verdict {
    Passed,        // every bus of every controller was judged good
    Failed,        // a bus has failed, whatever else came but an interruption
    NotCompleted,  // none failed, but something was not examined or not judged
    Interrupted,   // stopped from outside before its end
};

struct RunResult {
    MachineResult machine;
    std::vector<ControllerResult> controllers;  // in node order
    std::vector<ResultMessage> messages;  // of the run as a whole, such as an unsupported machine
    std::vector<platform::Trouble> troubles;  // the same
    std::optional<int> endOfRecord;           // the node that ended the run of a CIM client early
    std::chrono::system_clock::time_point begin;
    std::chrono::system_clock::time_point end;
    std::chrono::milliseconds elapsed{0};  // by a monotonic clock
    bool interrupted = false;              // stopped from outside
    Verdict verdict = Verdict::NotCompleted;
};

// "passed", "failed", "not_completed" or "interrupted".
std::string NameOf(Verdict verdict);
