// An error in a settings file, a profile or an environment variable.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace platform {

class SettingsError : public std::runtime_error {
public:
    // what() is the text, `whatToDo` a sentence.
    SettingsError(const std::string& text, std::string whatToDo)
        : std::runtime_error(text), advice(std::move(whatToDo)) {}

    // what() reads "where: found ..., allowed ...."; `where` is "file:line:column: key 'name'" or
    // the name of a variable, `allowed` begins with "is" or "are".
    SettingsError(const std::string& where, const std::string& found, const std::string& allowed);

    const std::string& Advice() const { return advice; }

private:
    std::string advice;
};

}  // namespace platform
