// How a request ended.
#pragma once

#include <cmpi/cmpi.h>

#include <exception>
#include <string>
#include <utility>

namespace host {

// A CMPI return code and, when it is not CMPI_RC_OK, a text.
struct Status {
    CMPIrc code = CMPI_RC_OK;
    std::string text = {};

    bool IsOk() const { return code == CMPI_RC_OK; }
};

// A status on its way to whoever asked: thrown below a CMPI function or a request, never past it.
class Failure : public std::exception {
public:
    explicit Failure(Status outcome) : status(std::move(outcome)) {}
    Failure(CMPIrc code, std::string text) : status{code, std::move(text)} {}

    const char* what() const noexcept override { return status.text.c_str(); }

    const Status status;
};

}  // namespace host
