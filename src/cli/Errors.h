// What ends a command early.
#pragma once

#include <host/Status.h>
#include <host/loading/LoadError.h>

#include <stdexcept>
#include <string>

namespace cli {

// What is wrong, and what to do, in full sentences. There may be no advice.
struct Problem {
    std::string text;
    std::string advice;

    // One after the other.
    std::string Message() const { return advice.empty() ? text : text + " " + advice; }
};

// A message whose first sentence is the error and whose other sentences are the advice.
Problem SplitMessage(const std::string& message);

// what() is the problem's message.
class CommandError : public std::runtime_error {
public:
    explicit CommandError(Problem itsProblem);

    const Problem& What() const { return problem; }

private:
    Problem problem;
};

// Wrong usage of the command line.
class UsageError : public CommandError {
public:
    using CommandError::CommandError;
    explicit UsageError(const std::string& text, const std::string& advice = "")
        : CommandError({text, advice}) {}
};

// Advice if the module, the schema or the registrations cannot be loaded; with a leading blank.
inline constexpr const char* kLoadAdvice =
    " Run 'bmci2c doctor' to see which files are wrong and what to do.";

Problem LoadProblem(const host::LoadError& error);

// A provider or the host refused a request.
class CallError : public CommandError {
public:
    // `request` says what was asked for: "Enumerating X". Where the class is wrong, the advice says
    // where to find the right ones, too.
    CallError(const std::string& request, const host::Status& status,
              const std::string& advice = "");
};

// "CIM status 5, invalid class: There is no class X.": the number, its meaning and the text.
std::string StatusText(const host::Status& status);

}  // namespace cli
