// CIM-XML over HTTP: what DMTF's DSP0200 asks of the HTTP messages that carry CIM-XML.
#pragma once

#include <cimxml/access/Authenticator.h>
#include <cimxml/http/HttpHandler.h>
#include <cimxml/http/Limits.h>
#include <cimxml/http/StopSignal.h>
#include <cimxml/operations/Operations.h>

#include <functional>
#include <string>

namespace cimxml {

// Takes a line for the log; called from several threads at once.
using LogLine = std::function<void(const std::string&)>;

class CimHandler : public HttpHandler {
public:
    // `authenticator`: null when everybody may send requests. All must outlive this.
    CimHandler(const Operations& itsOperations, const Limits& itsLimits,
               const Authenticator* itsAuthenticator, const StopSignal& stopSignal,
               LogLine logLine);

    std::optional<HttpResponse> Refuse(const HttpRequest& head, Client& client) const override;
    HttpResponse Answer(const HttpRequest& request) const override;

private:
    bool IsAllowed(const HttpRequest& head, Client& client) const;

    const Operations& operations;
    const Limits& limits;
    const Authenticator* const authenticator;
    const StopSignal& stop;
    const LogLine log;
};

}  // namespace cimxml
