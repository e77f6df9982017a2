#include <cimxml/codec/ProtocolError.h>
#include <cimxml/codec/RequestReader.h>
#include <cimxml/http/CimHandler.h>
#include <cimxml/http/CimHeaders.h>
#include <mof/Names.h>

#include <algorithm>
#include <utility>

namespace cimxml {

namespace {

constexpr const char* kPath = "/cimom";

HttpResponse ProtocolResponse(const ProtocolError& error) {
    HttpResponse response = TextResponse(error.httpStatus, error.what());
    response.headers.emplace_back("CIMError", error.cimError);
    return response;
}

HttpResponse Unauthorized() {
    HttpResponse response = TextResponse(401, "This server wants a user name and password.");
    response.headers.emplace_back("WWW-Authenticate", "Basic realm=\"bmci2c\", charset=\"UTF-8\"");
    return response;
}

// The path of a target such as "/cimom" or "http://server:5988/cimom".
std::string_view PathOf(std::string_view target) {
    constexpr std::string_view kScheme = "://";
    const auto scheme = target.find(kScheme);
    if (target.starts_with('/') || scheme == std::string_view::npos) return target;
    target.remove_prefix(scheme + kScheme.size());
    return target.substr(std::min(target.find('/'), target.size()));
}

bool IsXml(const std::string& contentType) {
    const std::string type = contentType.substr(0, contentType.find_first_of("; \t"));
    return mof::SameName(type, "application/xml") || mof::SameName(type, "text/xml");
}

bool IsUtf8(const std::string& contentType) {
    const std::string folded = mof::FoldedName(contentType);
    return folded.find("charset=") == std::string::npos ||
           folded.find("utf-8") != std::string::npos;
}

std::optional<HttpResponse> RefuseForm(const HttpRequest& head) {
    if (PathOf(head.target) != kPath)
        return TextResponse(404, "This server answers at " + std::string(kPath) + " only.");
    if (head.method != "POST" && head.method != "M-POST") {
        HttpResponse response = TextResponse(405, "This server answers POST and M-POST only.");
        response.headers.emplace_back("Allow", "POST, M-POST");
        return response;
    }
    // Browsers add it to what the scripts of web pages send, and no other client does.
    if (head.Header("Origin"))
        return TextResponse(403, "This server answers no web pages: the request has an 'Origin'.");
    if (!head.isVersion10 && !head.Header("Host"))
        return TextResponse(400, "The request lacks the header 'Host'.");
    const std::string* const type = head.Header("Content-Type");
    const std::string* const encoding = head.Header("Content-Encoding");
    if (!type || !IsXml(*type) || !IsUtf8(*type) ||
        (encoding && !mof::SameName(*encoding, "identity")))
        return TextResponse(415, "This server reads application/xml in UTF-8, not compressed.");
    return std::nullopt;
}

HttpResponse CimResponse(const CimHeaders& headers, std::string document) {
    const std::string& number = headers.Number();
    const std::string prefix = number.empty() ? "" : number + "-";
    HttpResponse response{200,
                          {{"Content-Type", "application/xml; charset=utf-8"},
                           {prefix + "CIMOperation", "MethodResponse"}},
                          std::move(document)};
    if (number.empty()) return response;
    response.headers.emplace_back("Ext", "");
    response.headers.emplace_back("Cache-Control", "no-cache");
    response.headers.emplace_back("Man",
                                  "http://www.dmtf.org/cim/mapping/http/v1.0 ; ns=" + number);
    return response;
}

}  // namespace

CimHandler::CimHandler(const Operations& itsOperations, const Limits& itsLimits,
                       const Authenticator* itsAuthenticator, const StopSignal& stopSignal,
                       LogLine logLine)
    : operations(itsOperations),
      limits(itsLimits),
      authenticator(itsAuthenticator),
      stop(stopSignal),
      log(std::move(logLine)) {}

bool CimHandler::IsAllowed(const HttpRequest& head, Client& client) const {
    if (!authenticator) return true;
    const std::string* const authorization = head.Header("Authorization");
    if (!authorization) return false;
    // Hashing is slow on purpose; a connection that stays is judged once.
    if (!client.grantedCredentials.empty() &&
        Authenticator::IsSame(*authorization, client.grantedCredentials))
        return true;
    const Authenticator::Verdict verdict = authenticator->Judge(*authorization);
    if (verdict.isGranted) {
        client.grantedCredentials = *authorization;
        return true;
    }
    log("The user '" + verdict.user + "' at " + client.address + " gave a wrong password.");
    stop.Sleep(limits.failurePause);
    return false;
}

std::optional<HttpResponse> CimHandler::Refuse(const HttpRequest& head, Client& client) const {
    if (!IsAllowed(head, client)) return Unauthorized();
    if (auto refusal = RefuseForm(head)) return refusal;
    try {
        CimHeaders(head).CheckOperation();
        return std::nullopt;
    } catch (const ProtocolError& error) {
        return ProtocolResponse(error);
    }
}

HttpResponse CimHandler::Answer(const HttpRequest& request) const {
    try {
        const CimHeaders headers(request);
        const Request cimRequest = ReadRequest(request.body, limits.maxDepth);
        headers.CheckAgainst(cimRequest);
        const std::string* const hostName = request.Header("Host");
        return CimResponse(headers, operations.Answer(cimRequest, hostName ? *hostName : ""));
    } catch (const ProtocolError& error) {
        return ProtocolResponse(error);
    } catch (const std::exception& error) {
        log(std::string("A request could not be answered: ") + error.what());
        return TextResponse(500, "The request could not be answered.");
    }
}

}  // namespace cimxml
