// The system's resolver, played: a program that links this gets the calls of name resolution from
// here. A wait passes on the clock of FakeClock.
//
//     FakeResolver::Reset({.after = milliseconds(20), .address = "192.0.2.1"});
#pragma once

#include <netdb.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

class FakeResolver {
public:
    // What comes `after` a request began: an address in digits, or else the error.
    struct Answer {
        std::optional<std::chrono::milliseconds> after = std::nullopt;  // unset: never
        std::string address = {};
        int error = EAI_NONAME;
    };

    // The answer to every request from now on; none was made yet, and each begins well.
    static void Reset(const Answer& answer);

    // What is under way is over now.
    static void EndAll();

    static inline std::vector<std::string> names;  // of all requests
    static inline int startError = 0;
};
