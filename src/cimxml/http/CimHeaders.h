// The CIM headers of an HTTP request.
#pragma once

#include <cimxml/codec/Request.h>
#include <cimxml/net/HttpMessage.h>

#include <optional>
#include <string>

namespace cimxml {

// The headers of a POST stand for themselves, those of an M-POST behind a prefix ("73-CIMMethod")
// that its Man header declares.
class CimHeaders {
public:
    // Throws HttpError (510) for an M-POST that does not declare the CIM extension.
    explicit CimHeaders(const HttpRequest& httpRequest);

    // A CIM header, or null.
    const std::string* Find(const std::string& name) const;

    // The declared number of an M-POST ("73"), else empty.
    const std::string& Number() const { return number; }

    // Throws ProtocolError when the headers do not say that this is a call of a method.
    void CheckOperation() const;

    // True when the CIMMethod header names the method.
    bool NameMethod(const std::string& method) const;

    // Throws ProtocolError if the headers and the document do not name the same method and object.
    // The keys of an instance are only in the document.
    void CheckAgainst(const Request& request) const;

private:
    const HttpRequest& http;
    std::string number;
};

}  // namespace cimxml
