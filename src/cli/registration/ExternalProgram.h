// Other programs, called with their arguments as they stand: no shell reads them.
#pragma once

#include <string>
#include <vector>

namespace cli {

// The program's name and its arguments.
using CommandWords = std::vector<std::string>;

struct ProgramResult {
    int exitCode = 0;  // 128 and the signal's number when a signal ended the program
    std::string
        output;  // what it wrote to its standard output and error output, in that order of time
};

// The program's file in the folders of PATH; empty when there is none.
std::string FindProgram(const std::string& name);

// Runs the program to its end, without standard input. Throws std::system_error when it cannot be
// started.
ProgramResult RunProgram(const CommandWords& command);

}  // namespace cli
