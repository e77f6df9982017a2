// The exception of the diagnostics library: a status code and its text.
#pragma once

#include <exception>
#include <string>

namespace NQUVZDX20 {

class TZDXStatusCode {
public:
    static constexpr int kOutOfMemory = 4;

    explicit TZDXStatusCode(int statusCode) : code(statusCode) {}

    int GetCode() const { return code; }

    // The text of the code, for instance "Out of memory" for 4.
    std::string TranslateStatusCode() const;

private:
    int code;
};

class TZDXException : public std::exception {
public:
    explicit TZDXException(int statusCode);

    // The text that the status code translates to.
    const char* what() const noexcept override { return text.c_str(); }

    int GetCode() const { return code.GetCode(); }

private:
    TZDXStatusCode code;
    std::string text;
};

}  // namespace NQUVZDX20
