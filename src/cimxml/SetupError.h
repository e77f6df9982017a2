// What keeps a server from starting: an address, certificate or password file that cannot be used.
#pragma once

#include <stdexcept>

namespace cimxml {

// what() is a full sentence for the user who starts the server.
class SetupError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace cimxml
