// Explains wrong usage of the command line.
#pragma once

#include <cli/Errors.h>

#include <string>
#include <vector>

namespace CLI {
class App;
class Error;
}  // namespace CLI

namespace cli {

// Explains the `error` with which `program` refused the line, and names the help.
Problem UsageProblem(const CLI::App& program, const CLI::Error& error);

// The text for an unknown command.
Problem UnknownCommand(const std::string& word, const std::vector<std::string>& commands);

// The commands that the help lists.
std::vector<std::string> CommandNames(const CLI::App& program);

}  // namespace cli
