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

// A status as an exception: thrown below a CMPI function or a request, never through it.
class Failure : public std::exception {
public:
    explicit Failure(Status outcome) : status(std::move(outcome)) {}
    Failure(CMPIrc code, std::string text) : status{code, std::move(text)} {}

    const char* what() const noexcept override { return status.text.c_str(); }

    const Status status;
};

// Creates the answer to a request: `ask` fills it in, and a failure becomes its status.
template <class Answer, class Ask>
Answer Answered(const Ask& ask) {
    Answer answer{};
    try {
        ask(answer);
    } catch (const Failure& failure) {
        answer.status = failure.status;
    } catch (const std::exception& error) {
        answer.status = {CMPI_RC_ERR_FAILED, error.what()};
    }
    return answer;
}

}  // namespace host
