// The kernel's IPMI driver, played: a program that links this gets the in-band way's system calls
// from here. A wait passes on the clock of FakeClock.
//
//     FakeKernel::Reset();
//     FakeKernel::messages = {{.after = milliseconds(20), .data = {0x00, 0x01}}};
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

class FakeKernel {
public:
    // What comes for a descriptor, `after` the wait for it began. What is not given is that of the
    // request.
    struct Message {
        std::chrono::milliseconds after{0};
        int kind = 1;            // IPMI_RESPONSE_RECV_TYPE
        int addressType = 0x0C;  // IPMI_SYSTEM_INTERFACE_ADDR_TYPE
        std::optional<long> messageId = std::nullopt;
        std::optional<std::uint8_t> netFn = std::nullopt;
        std::optional<std::uint8_t> command = std::nullopt;
        std::vector<std::uint8_t> data = {};
    };

    struct Request {
        std::string path;
        int addressType;
        int channel;
        int lun;
        long messageId;
        std::uint8_t netFn;
        std::uint8_t command;
        std::vector<std::uint8_t> data;
    };

    // No message, no failure, nothing open.
    static void Reset();

    static inline std::deque<Message> messages;  // for the next requests, whichever descriptor
    static inline std::vector<Request> requests;

    // The errno of the next calls, in order; 0: the call works. Behind them every call works.
    static inline std::deque<int> openErrors;
    static inline std::deque<int> sendErrors;
    static inline std::deque<int> receiveErrors;
    static inline std::deque<int> pollErrors;
    static inline bool hangsUp = false;  // poll reports an error of the descriptor

    static inline int openFlags = 0;                       // of the last opening
    static inline std::map<int, std::string> descriptors;  // open ones, and their paths
};
