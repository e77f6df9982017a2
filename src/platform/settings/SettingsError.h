// What is wrong in a settings file, a profile or an environment variable.
#pragma once

#include <stdexcept>
#include <string>

namespace platform {

class SettingsError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;

    // what() reads "where: found ..., allowed ...."; `where` is "file:line:column: key 'name'" or
    // the name of a variable, `allowed` begins with "is" or "are".
    SettingsError(const std::string& where, const std::string& found, const std::string& allowed);
};

}  // namespace platform
