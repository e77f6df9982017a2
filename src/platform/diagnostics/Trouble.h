// Why something could not be done, for programs and for people.
#pragma once

#include <string>

namespace platform {

struct Trouble {
    std::string code;    // for programs: lower-case words joined by '_', such as "no_answer"
    std::string text;    // what is wrong, in one or more sentences; never a password
    std::string advice;  // what to do about it; empty when nothing is known to help

    bool operator==(const Trouble&) const = default;
};

}  // namespace platform
