#include <cimxml/codec/ProtocolError.h>
#include <cimxml/http/CimHeaders.h>
#include <mof/Names.h>

#include <algorithm>
#include <charconv>

namespace cimxml {

namespace {

constexpr int kBadRequest = 400;
constexpr int kNotImplemented = 501;
constexpr int kNotExtended = 510;
constexpr std::string_view kExtension = "http://www.dmtf.org/cim/mapping/http/v1.0";

[[noreturn]] void FailMismatch(const std::string& text) {
    throw ProtocolError(kBadRequest, kHeaderMismatch, text);
}

// "ns=73" of "http://www.dmtf.org/cim/mapping/http/v1.0 ; ns=73".
std::string NumberOf(const std::string& man) {
    const auto at = man.find("ns=");
    if (man.find(kExtension) == std::string::npos || at == std::string::npos) return {};
    const auto begin = at + 3;
    const auto end = std::min(man.find_first_not_of("0123456789", begin), man.size());
    return man.substr(begin, end - begin);
}

// The text with "%2F" and the like replaced by the bytes that they stand for.
std::string Unescaped(const std::string& text) {
    std::string unescaped;
    for (std::size_t at = 0; at < text.size(); ++at) {
        unsigned int byte = 0;
        const char* const digits = text.data() + at + 1;
        if (text[at] == '%' && at + 2 < text.size() &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            unescaped += static_cast<char>(byte);
            at += 2;
        } else {
            unescaped += text[at];
        }
    }
    return unescaped;
}

// The object of a header without the keys: "root/QUVSD" or "root/QUVSD:Class".
std::string ObjectWithoutKeys(const std::string& header) {
    std::string object = Unescaped(header);
    object.erase(std::min(object.find_first_of(".\"="), object.size()));
    object.erase(0, object.find_first_not_of('/'));
    return object;
}

std::string ExpectedObject(const Request& request) {
    return request.isIntrinsic ? request.nameSpace
                               : request.nameSpace + ":" + request.target.className;
}

}  // namespace

CimHeaders::CimHeaders(const HttpRequest& httpRequest) : http(httpRequest) {
    if (http.method != "M-POST") return;
    const std::string* const man = http.Header("Man");
    if (man) number = NumberOf(*man);
    if (number.empty())
        throw HttpError(kNotExtended, "An M-POST must declare the extension '" +
                                          std::string(kExtension) + "' in its header 'Man'.");
}

const std::string* CimHeaders::Find(const std::string& name) const {
    return http.Header(number.empty() ? name : number + "-" + name);
}

void CimHeaders::CheckOperation() const {
    const std::string* const operation = Find("CIMOperation");
    if (!operation)
        throw ProtocolError(kBadRequest, kUnsupportedOperation,
                            "The request lacks the header 'CIMOperation'.");
    if (!mof::SameName(*operation, "MethodCall"))
        throw ProtocolError(kNotImplemented, kUnsupportedOperation,
                            "This server does not know the CIMOperation '" + *operation + "'.");
    if (Find("CIMBatch"))
        throw ProtocolError(kNotImplemented, kMultipleRequests,
                            "This server takes one request at a time.");
    const std::string* const version = Find("CIMProtocolVersion");
    if (version && !version->starts_with("1."))
        throw ProtocolError(
            kNotImplemented, kUnsupportedProtocol,
            "This server does not support the CIMProtocolVersion '" + *version + "'.");
}

bool CimHeaders::NameMethod(const std::string& method) const {
    const std::string* const named = Find("CIMMethod");
    return named && mof::SameName(Unescaped(*named), method);
}

void CimHeaders::CheckAgainst(const Request& request) const {
    const std::string* const method = Find("CIMMethod");
    const std::string* const object = Find("CIMObject");
    if (!method || !object)
        FailMismatch("The request lacks the header 'CIMMethod' or 'CIMObject'.");
    if (!NameMethod(request.method))
        FailMismatch("The header 'CIMMethod' names the method '" + *method + "', the document '" +
                     request.method + "'.");
    if (!mof::SameName(ObjectWithoutKeys(*object), ExpectedObject(request)))
        FailMismatch("The header 'CIMObject' names '" + *object + "', the document '" +
                     ExpectedObject(request) + "'.");
}

}  // namespace cimxml
