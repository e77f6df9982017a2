// A command line that cannot be read, explained.
#pragma once

#include <cli/Errors.h>

#include <string>
#include <vector>

namespace CLI {
class App;
class Error;
}  // namespace CLI

namespace cli {

// What is wrong with the line that `program` refused with `error`, and where its help is.
Problem UsageProblem(const CLI::App& program, const CLI::Error& error);

// A word that is none of the commands.
Problem UnknownCommand(const std::string& word, const std::vector<std::string>& commands);

// The commands that the help lists.
std::vector<std::string> CommandNames(const CLI::App& program);

}  // namespace cli
