// Who answers the requests of a server.
#pragma once

#include <cimxml/http/HttpMessage.h>

#include <optional>
#include <string>

namespace cimxml {

// What is known of the client at the other end of a connection.
struct Client {
    std::string address;             // "127.0.0.1:40000"
    std::string grantedCredentials;  // the Authorization header that was found right before
};

// Called from several threads at once, for one connection by one thread.
class HttpHandler {
public:
    virtual ~HttpHandler() = default;

    // A response that refuses the request before its body is read; nothing when it may go on.
    virtual std::optional<HttpResponse> Refuse(const HttpRequest& head, Client& client) const = 0;

    virtual HttpResponse Answer(const HttpRequest& request) const = 0;
};

}  // namespace cimxml
