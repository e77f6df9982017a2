#include <cimxml/codec/ProtocolError.h>
#include <cimxml/codec/RequestReader.h>
#include <cimxml/codec/ResponseDocument.h>
#include <cimxml/http/CimHandler.h>
#include <cimxml/http/CimHeaders.h>
#include <mof/Names.h>

#include <algorithm>
#include <utility>

namespace cimxml {

namespace {

constexpr const char* kPath = "/cimom";
constexpr const char* kMetricsPath = "/metrics";
constexpr const char* kHealthPath = "/healthz";
constexpr const char* kRunMethod = "RunDiagnostic";
constexpr const char* kRunUnderWay = "RunDiagnostic was not started: a run is under way.";
constexpr int kFailed = 1;  // CIM_ERR_FAILED

HttpResponse ProtocolResponse(const ProtocolError& error) {
    HttpResponse response = TextResponse(error.httpStatus, error.what());
    response.headers.emplace_back("CIMError", error.cimError);
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

bool Reads(const HttpRequest& head, std::string_view path) {
    return PathOf(head.target) == path && (head.method == "GET" || head.method == "HEAD");
}

HttpResponse MetricsResponse(std::string text) {
    return {200,
            {{"Content-Type", "application/openmetrics-text; version=1.0.0; charset=utf-8"}},
            std::move(text)};
}

std::optional<HttpResponse> RefuseForm(const HttpRequest& head) {
    if (PathOf(head.target) != kPath)
        return TextResponse(404, "This server answers at " + std::string(kPath) + " only.");
    if (head.method != "POST" && head.method != "M-POST") {
        HttpResponse response = TextResponse(405, "This server answers POST and M-POST only.");
        response.headers.emplace_back("Allow", "POST, M-POST");
        return response;
    }
    // Browsers add it to requests of web pages' scripts; no other client does.
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

std::string RunUnderWayDocument(const Request& request) {
    return ResponseDocument(request, [](XmlWriter& xml) {
        xml.EmptyElement("ERROR",
                         {{"CODE", std::to_string(kFailed)}, {"DESCRIPTION", kRunUnderWay}});
    });
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

CimHandler::CimHandler(const Operations& itsOperations, const Limits& itsLimits, LogLine logLine,
                       std::function<std::string()> metricsText)
    : operations(itsOperations),
      limits(itsLimits),
      log(std::move(logLine)),
      metrics(std::move(metricsText)) {}

void CimHandler::UseAuthenticator(std::shared_ptr<const Authenticator> newOne) {
    const std::lock_guard lock(mutex);
    authenticator = std::move(newOne);
}

std::shared_ptr<const Authenticator> CimHandler::CurrentAuthenticator() const {
    const std::lock_guard lock(mutex);
    return authenticator;
}

HttpHandler::Access CimHandler::AccessOf(const HttpRequest& head, const Client& client) const {
    const auto current = CurrentAuthenticator();
    // Monitoring learns only that the server answers.
    if (!current || Reads(head, kHealthPath)) return Access::Granted;
    const std::string* const authorization = head.Header("Authorization");
    if (!authorization) return Access::Refused;
    // Hashing is slow on purpose, so a keep-alive connection is authenticated once.
    if (client.grantedBy == current &&
        Authenticator::IsSame(*authorization, client.grantedCredentials))
        return Access::Granted;
    return Access::MustAuthenticate;
}

bool CimHandler::Authenticate(const HttpRequest& head, Client& client) const {
    const auto current = CurrentAuthenticator();
    const std::string authorization = *head.Header("Authorization");
    const Authenticator::Verdict verdict = current->Authenticate(authorization);
    if (verdict.isGranted) {
        client.grantedCredentials = authorization;
        client.grantedBy = current;
        return true;
    }
    log("The user " + verdict.user + " at " + client.address + " gave a wrong password.");
    return false;
}

HttpResponse CimHandler::Unauthorized() const {
    HttpResponse response = TextResponse(401, "This server wants a user name and password.");
    response.headers.emplace_back("WWW-Authenticate", "Basic realm=\"bmci2c\", charset=\"UTF-8\"");
    return response;
}

std::optional<HttpResponse> CimHandler::AnswerHead(const HttpRequest& head) const {
    if (Reads(head, kHealthPath)) return TextResponse(200, "ok");
    if (metrics && Reads(head, kMetricsPath)) return MetricsResponse(metrics());
    if (auto refusal = RefuseForm(head)) return refusal;
    try {
        CimHeaders(head).CheckOperation();
        return std::nullopt;
    } catch (const ProtocolError& error) {
        return ProtocolResponse(error);
    }
}

bool CimHandler::IsRun(const HttpRequest& request) const {
    // Headers and document name the same method, or the request is refused.
    return CimHeaders(request).NameMethod(kRunMethod);
}

// The answer whose document `make` makes of the CIM request.
template <class MakeDocument>
HttpResponse CimHandler::AnswerWith(const HttpRequest& request, const MakeDocument& make) const {
    try {
        const CimHeaders headers(request);
        const Request cimRequest = ReadRequest(request.body, limits.maxDepth);
        headers.CheckAgainst(cimRequest);
        return CimResponse(headers, make(cimRequest));
    } catch (const ProtocolError& error) {
        return ProtocolResponse(error);
    } catch (const std::exception& error) {
        log(std::string("A request could not be answered: ") + error.what());
        return TextResponse(500, "The request could not be answered.");
    }
}

HttpResponse CimHandler::Answer(const HttpRequest& request) const {
    const std::string* const hostName = request.Header("Host");
    return AnswerWith(request, [&](const Request& cimRequest) {
        return operations.Answer(cimRequest, hostName ? *hostName : "");
    });
}

HttpResponse CimHandler::RefuseRun(const HttpRequest& request) const {
    return AnswerWith(request, RunUnderWayDocument);
}

}  // namespace cimxml
