#pragma once

#include <stdexcept>

namespace host {

// The module, schema or registrations could not be loaded; what() names the file and the reason.
class LoadError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace host
