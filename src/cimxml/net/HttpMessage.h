// HTTP requests and responses as data.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cimxml {

using Headers = std::vector<std::pair<std::string, std::string>>;

struct HttpRequest {
    std::string method;
    std::string target;
    bool isVersion10 = false;
    Headers headers;
    std::string body = {};
    bool isLast = false;  // the client does not want keep-alive

    // The header of that name in any letter case, or null.
    const std::string* Header(std::string_view name) const;
};

struct HttpResponse {
    int status = 200;
    Headers headers = {};
    std::string body = {};
};

// A bad request: it is answered with this status and text, and the connection ends.
class HttpError : public std::runtime_error {
public:
    HttpError(int httpStatus, const std::string& text)
        : std::runtime_error(text), status(httpStatus) {}

    const int status;
};

// A response whose body is the text.
HttpResponse TextResponse(int status, const std::string& text);

// The response's line and headers as bytes. `isLast`: the connection ends after it.
std::string HeadOf(const HttpResponse& response, bool isLast);

}  // namespace cimxml
