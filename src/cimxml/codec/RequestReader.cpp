#include <cimxml/codec/DocumentReader.h>
#include <cimxml/codec/PathReader.h>
#include <cimxml/codec/RequestReader.h>

namespace cimxml {

namespace {

constexpr int kNotImplemented = 501;

// Minor versions add to the standard without breaking it.
void CheckVersion(const Element& element, const char* attribute, const char* major,
                  const char* cimError) {
    const std::string& version = element.Attribute(attribute);
    if (!version.starts_with(major))
        throw ProtocolError(
            kNotImplemented, cimError,
            "This server does not support the " + std::string(attribute) + " '" + version + "'.");
}

Parameter::Data ReadParameterValue(const Element* value) {
    if (!value) return std::monostate{};
    if (value->Is("CLASSNAME")) return ClassName{value->Attribute("NAME")};
    if (value->Is("INSTANCENAME")) return ReadInstanceName(*value);
    if (value->Is("VALUE")) return value->text;
    if (!value->Is("VALUE.ARRAY")) return Unread{};
    std::vector<std::string> texts;
    for (const Element& element : value->children) texts.push_back(element.text);
    return texts;
}

void ReadIntrinsicCall(const Element& call, Request& request) {
    request.method = call.Attribute("NAME");
    const Element& nameSpace = call.Child("LOCALNAMESPACEPATH");
    request.nameSpace = ReadNameSpace(nameSpace);
    for (const Element& child : call.children) {
        if (&child == &nameSpace) continue;
        if (!child.Is("IPARAMVALUE"))
            FailLooselyValid("A call of an intrinsic method cannot hold the element '" +
                             child.name + "'.");
        request.parameters.push_back(
            {child.Attribute("NAME"), ReadParameterValue(child.FirstChild())});
    }
}

host::Value ReadArgument(const Element& argument) {
    const Element* const value = argument.FirstChild();
    if (!value) return {};
    if (argument.FindAttribute("EmbeddedObject"))
        FailLooselyValid("This server reads no embedded objects as arguments.");
    return ReadValue(*value);
}

void ReadExtrinsicCall(const Element& call, Request& request) {
    request.isIntrinsic = false;
    request.method = call.Attribute("NAME");
    const Element* const target = call.FirstChild();
    if (!target || (!target->Is("LOCALINSTANCEPATH") && !target->Is("LOCALCLASSPATH")))
        FailLooselyValid("A method call must begin with the path of an instance or class.");
    request.target = ReadPath(*target);
    request.nameSpace = request.target.nameSpace;
    for (const Element& child : call.children) {
        if (&child == target) continue;
        if (!child.Is("PARAMVALUE"))
            FailLooselyValid("A method call cannot hold the element '" + child.name + "'.");
        request.arguments.push_back({child.Attribute("NAME"), ReadArgument(child)});
    }
}

const Element& SimpleRequest(const Element& message) {
    const Element& request = message.OnlyChild();
    if (request.Is("MULTIREQ"))
        throw ProtocolError(kNotImplemented, kMultipleRequests,
                            "This server takes one request at a time.");
    if (request.Is("SIMPLEEXPREQ") || request.Is("MULTIEXPREQ"))
        throw ProtocolError(kNotImplemented, kUnsupportedOperation,
                            "This server takes no indications.");
    if (!request.Is("SIMPLEREQ"))
        FailLooselyValid("The message holds no request, but the element '" + request.name + "'.");
    return request;
}

}  // namespace

Request ReadRequest(const std::string& text, std::size_t maxDepth) {
    const Element cim = ReadDocument(text, maxDepth);
    if (!cim.Is("CIM")) FailLooselyValid("The document's root is not the element 'CIM'.");
    CheckVersion(cim, "CIMVERSION", "2.", kUnsupportedCimVersion);
    CheckVersion(cim, "DTDVERSION", "2.", kUnsupportedDtdVersion);
    const Element& message = cim.Child("MESSAGE");
    CheckVersion(message, "PROTOCOLVERSION", "1.", kUnsupportedProtocol);
    Request request;
    request.messageId = message.Attribute("ID");
    const Element& call = SimpleRequest(message).OnlyChild();
    if (call.Is("IMETHODCALL"))
        ReadIntrinsicCall(call, request);
    else if (call.Is("METHODCALL"))
        ReadExtrinsicCall(call, request);
    else
        FailLooselyValid("The request holds no method call, but the element '" + call.name + "'.");
    return request;
}

}  // namespace cimxml
