#include <cli/Errors.h>

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace cli {

namespace {

// By status number, in the numbers' order.
constexpr std::array<std::string_view, 19> kMeanings = {
    "success",
    "failed",
    "access denied",
    "invalid namespace",
    "invalid parameter",
    "invalid class",
    "not found",
    "not supported",
    "class has children",
    "class has instances",
    "invalid superclass",
    "already exists",
    "no such property",
    "type mismatch",
    "query language not supported",
    "invalid query",
    "method not available",
    "method not found",
    "no more elements",
};

std::string WithClassAdvice(const host::Status& status, const std::string& advice) {
    constexpr const char* kClasses = "Run 'bmci2c info' to see the classes.";
    if (status.code != CMPI_RC_ERR_INVALID_CLASS) return advice;
    return advice.empty() ? kClasses : advice + " " + kClasses;
}

bool IsCapital(char letter) { return letter >= 'A' && letter <= 'Z'; }

// Where the first sentence ends: after a full stop that a blank and a capital letter follow.
std::size_t EndOfFirstSentence(const std::string& text) {
    for (std::size_t dot = text.find(". "); dot != std::string::npos;
         dot = text.find(". ", dot + 1))
        if (dot + 2 < text.size() && IsCapital(text[dot + 2])) return dot + 1;
    return text.size();
}

}  // namespace

std::string StatusText(const host::Status& status) {
    std::string text = "CIM status " + std::to_string(status.code);
    const auto number = static_cast<std::size_t>(status.code);
    if (number < kMeanings.size()) text += ", " + std::string(kMeanings[number]);
    return status.text.empty() ? text + "." : text + ": " + status.text;
}

Problem SplitMessage(const std::string& message) {
    const std::size_t end = EndOfFirstSentence(message);
    if (end == message.size()) return {message, ""};
    return {message.substr(0, end), message.substr(end + 1)};
}

CommandError::CommandError(Problem itsProblem)
    : std::runtime_error(itsProblem.Message()), problem(std::move(itsProblem)) {}

Problem LoadProblem(const host::LoadError& error) {
    return {error.what(), std::string(kLoadAdvice).substr(1)};
}

CallError::CallError(const std::string& request, const host::Status& status,
                     const std::string& advice)
    : CommandError({request + " failed. " + StatusText(status), WithClassAdvice(status, advice)}) {}

}  // namespace cli
