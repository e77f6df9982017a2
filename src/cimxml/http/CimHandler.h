// CIM-XML over HTTP: the rules of DMTF's DSP0200 for HTTP messages that carry CIM-XML.
#pragma once

#include <cimxml/access/Authenticator.h>
#include <cimxml/net/HttpHandler.h>
#include <cimxml/net/Limits.h>
#include <cimxml/operations/Operations.h>

#include <functional>
#include <memory>
#include <mutex>
#include <string>

namespace cimxml {

// Takes a line for the log; called from several threads concurrently.
using LogLine = std::function<void(const std::string&)>;

class CimHandler : public HttpHandler {
public:
    // `metricsText` makes the page of /metrics; empty: there is none. All must outlive this.
    CimHandler(const Operations& itsOperations, const Limits& itsLimits, LogLine logLine,
               std::function<std::string()> metricsText = {});

    // The users who may send requests; null: no authentication. From any thread.
    void UseAuthenticator(std::shared_ptr<const Authenticator> newOne);

    Access AccessOf(const HttpRequest& head, const Client& client) const override;
    bool Authenticate(const HttpRequest& head, Client& client) const override;
    HttpResponse Unauthorized() const override;
    std::optional<HttpResponse> AnswerHead(const HttpRequest& head) const override;
    bool IsRun(const HttpRequest& request) const override;
    HttpResponse Answer(const HttpRequest& request) const override;
    HttpResponse RefuseRun(const HttpRequest& request) const override;

private:
    template <class MakeDocument>
    HttpResponse AnswerWith(const HttpRequest& request, const MakeDocument& make) const;
    std::shared_ptr<const Authenticator> CurrentAuthenticator() const;

    const Operations& operations;
    const Limits& limits;
    const LogLine log;
    const std::function<std::string()> metrics;
    mutable std::mutex mutex;  // guards the pointer, not what it points to
    std::shared_ptr<const Authenticator> authenticator;
};

}  // namespace cimxml
