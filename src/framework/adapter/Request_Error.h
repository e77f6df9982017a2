// Ends a request with a CMPI return code.
#pragma once

#include <cmpi/cmpi.h>

#include <stdexcept>
#include <string>

namespace cimple {

// what() is a sentence without provider and operation: the boundary puts them before it.
class Request_Error : public std::runtime_error {
public:
    Request_Error(CMPIrc returnCode, const std::string& sentence)
        : std::runtime_error(sentence), code(returnCode) {}

    const CMPIrc code;
};

}  // namespace cimple
