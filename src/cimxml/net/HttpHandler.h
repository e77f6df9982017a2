// The handler of a server's requests.
#pragma once

#include <cimxml/net/HttpMessage.h>

#include <memory>
#include <optional>
#include <string>

namespace cimxml {

// What is known about a connection's client.
struct Client {
    std::string address;                    // "127.0.0.1:40000"
    std::string grantedCredentials;         // the Authorization header that was found right before
    std::shared_ptr<const void> grantedBy;  // the users of that time
};

// Called from several threads concurrently, but for each connection by one at a time. A request's
// head goes through the functions in this order until one refuses it.
class HttpHandler {
public:
    virtual ~HttpHandler() = default;

    enum class Access { Granted, Refused, MustAuthenticate };
    virtual Access AccessOf(const HttpRequest& head, const Client& client) const = 0;
    // Checks the credentials, which is slow on purpose; remembers valid ones.
    virtual bool Authenticate(const HttpRequest& head, Client& client) const = 0;
    virtual HttpResponse Unauthorized() const = 0;

    // A response that refuses the request before its body is read; nothing if it may continue.
    virtual std::optional<HttpResponse> AnswerHead(const HttpRequest& head) const = 0;

    // True for a request that may take long; only one of them runs at a time.
    virtual bool IsRun(const HttpRequest& request) const = 0;
    virtual HttpResponse Answer(const HttpRequest& request) const = 0;
    // The response to a run that timed out waiting for its turn.
    virtual HttpResponse RefuseRun(const HttpRequest& request) const = 0;
};

}  // namespace cimxml
