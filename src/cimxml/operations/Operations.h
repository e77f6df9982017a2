// Carries out requests: intrinsic operations on classes, instances and associations, and methods of
// providers.
#pragma once

#include <cimxml/codec/Request.h>
#include <cimxml/operations/EnumerationSessions.h>
#include <cimxml/operations/NameSpace.h>

#include <memory>
#include <string>

namespace cimxml {

class XmlWriter;

class Operations {
public:
    explicit Operations(NameSpaces served);

    // The document of the answer; an operation that fails is answered with its CIM error.
    // `hostName` is how the client calls this server. May be called from several threads
    // concurrently.
    std::string Answer(const Request& request, const std::string& hostName) const;

private:
    const NameSpace& NameSpaceOf(const Request& request) const;
    void AnswerIntrinsic(const Request& request, const std::string& hostName, XmlWriter& xml) const;
    void AnswerExtrinsic(const Request& request, XmlWriter& xml) const;

    const NameSpaces nameSpaces;
    const std::unique_ptr<EnumerationSessions> sessions = std::make_unique<EnumerationSessions>();
};

}  // namespace cimxml
