// Who answers the requests of a server.
#pragma once

#include <cimxml/net/HttpMessage.h>

#include <memory>
#include <optional>
#include <string>

namespace cimxml {

// What is known of the client at the other end of a connection.
struct Client {
    std::string address;                    // "127.0.0.1:40000"
    std::string grantedCredentials;         // the Authorization header that was found right before
    std::shared_ptr<const void> grantedBy;  // the users of that time
};

// Called from several threads at once, for one connection by one thread. The head of a request goes
// through the functions in their order, until one of them refuses it.
class HttpHandler {
public:
    virtual ~HttpHandler() = default;

    enum class Access { Granted, Refused, MustBeJudged };
    virtual Access AccessOf(const HttpRequest& head, const Client& client) const = 0;
    // Judges the credentials, which takes long on purpose; keeps those that are right.
    virtual bool Judge(const HttpRequest& head, Client& client) const = 0;
    virtual HttpResponse Unauthorized() const = 0;

    // A response that ends the matter before the body is read; nothing when it may go on.
    virtual std::optional<HttpResponse> AnswerHead(const HttpRequest& head) const = 0;

    // True for what may take long, and of which one is carried out at a time.
    virtual bool IsRun(const HttpRequest& request) const = 0;
    virtual HttpResponse Answer(const HttpRequest& request) const = 0;
    // What a run gets whose turn did not come.
    virtual HttpResponse RefuseRun(const HttpRequest& request) const = 0;
};

}  // namespace cimxml
