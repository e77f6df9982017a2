// A request that cannot be answered with a CIM message, only with an HTTP error.
#pragma once

#include <stdexcept>
#include <string>

namespace cimxml {

class ProtocolError : public std::runtime_error {
public:
    // `cimError`: the word for the CIMError header, or empty; `text`: a sentence for the client.
    ProtocolError(int status, std::string error, const std::string& text)
        : std::runtime_error(text), httpStatus(status), cimError(std::move(error)) {}

    const int httpStatus;
    const std::string cimError;
};

// The words of the CIMError header.
inline constexpr const char* kNotWellFormed = "request-not-well-formed";
inline constexpr const char* kNotLooselyValid = "request-not-loosely-valid";
inline constexpr const char* kHeaderMismatch = "header-mismatch";
inline constexpr const char* kUnsupportedOperation = "unsupported-operation";
inline constexpr const char* kUnsupportedProtocol = "unsupported-protocol-version";
inline constexpr const char* kUnsupportedCimVersion = "unsupported-cim-version";
inline constexpr const char* kUnsupportedDtdVersion = "unsupported-dtd-version";
inline constexpr const char* kMultipleRequests = "multiple-requests-unsupported";

}  // namespace cimxml
