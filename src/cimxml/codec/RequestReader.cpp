#include <cimxml/codec/Document.h>
#include <cimxml/codec/PathReader.h>
#include <cimxml/codec/RequestReader.h>

#include <utility>

namespace cimxml {

namespace {

constexpr int kNotImplemented = 501;

// Minor versions add to the standard without breaking it.
void CheckVersion(Node element, const char* attribute, const char* major, const char* cimError) {
    const std::string version = Required(element, attribute);
    if (!version.starts_with(major))
        throw ProtocolError(
            kNotImplemented, cimError,
            "This server does not support the " + std::string(attribute) + " '" + version + "'.");
}

Parameter::Data ReadParameterValue(Node value) {
    if (!value) return std::monostate{};
    if (Is(value, "CLASSNAME")) return ClassName{Required(value, "NAME")};
    if (Is(value, "INSTANCENAME")) return ReadInstanceName(value);
    if (Is(value, "VALUE")) return TextOf(value);
    if (!Is(value, "VALUE.ARRAY")) return Unread{};
    std::vector<std::string> texts;
    for (Node element = First(value); element; element = Next(element))
        texts.push_back(TextOf(element));
    return texts;
}

void ReadIntrinsicCall(Node call, Request& request) {
    request.method = Required(call, "NAME");
    const Node nameSpace = Child(call, "LOCALNAMESPACEPATH");
    request.nameSpace = ReadNameSpace(nameSpace);
    for (Node child = First(call); child; child = Next(child)) {
        if (child == nameSpace) continue;
        if (!Is(child, "IPARAMVALUE"))
            FailLooselyValid("A call of an intrinsic method cannot hold the element '" +
                             std::string(child.name()) + "'.");
        request.parameters.push_back({Required(child, "NAME"), ReadParameterValue(First(child))});
    }
}

host::Value ReadArgument(Node argument) {
    const Node value = First(argument);
    if (!value) return {};
    if (argument.attribute("EmbeddedObject"))
        FailLooselyValid("This server reads no embedded objects as arguments.");
    return ReadValue(value);
}

void ReadExtrinsicCall(Node call, Request& request) {
    request.isIntrinsic = false;
    request.method = Required(call, "NAME");
    const Node target = First(call);
    if (!Is(target, "LOCALINSTANCEPATH") && !Is(target, "LOCALCLASSPATH"))
        FailLooselyValid("A method call must begin with the path of an instance or class.");
    request.target = ReadPath(target);
    request.nameSpace = request.target.nameSpace;
    for (Node child = Next(target); child; child = Next(child)) {
        if (!Is(child, "PARAMVALUE"))
            FailLooselyValid("A method call cannot hold the element '" + std::string(child.name()) +
                             "'.");
        request.arguments.push_back({Required(child, "NAME"), ReadArgument(child)});
    }
}

Node SimpleRequest(Node message) {
    const Node request = OnlyChild(message);
    if (Is(request, "MULTIREQ"))
        throw ProtocolError(kNotImplemented, kMultipleRequests,
                            "This server takes one request at a time.");
    if (Is(request, "SIMPLEEXPREQ") || Is(request, "MULTIEXPREQ"))
        throw ProtocolError(kNotImplemented, kUnsupportedOperation,
                            "This server takes no indications.");
    if (!Is(request, "SIMPLEREQ"))
        FailLooselyValid("The message holds no request, but the element '" +
                         std::string(request.name()) + "'.");
    return request;
}

}  // namespace

Request ReadRequest(std::string text, std::size_t maxDepth) {
    const Document document(std::move(text), maxDepth);
    const Node cim = document.Root();
    if (!Is(cim, "CIM")) FailLooselyValid("The document's root is not the element 'CIM'.");
    CheckVersion(cim, "CIMVERSION", "2.", kUnsupportedCimVersion);
    CheckVersion(cim, "DTDVERSION", "2.", kUnsupportedDtdVersion);
    const Node message = Child(cim, "MESSAGE");
    CheckVersion(message, "PROTOCOLVERSION", "1.", kUnsupportedProtocol);
    Request request;
    request.messageId = Required(message, "ID");
    const Node call = OnlyChild(SimpleRequest(message));
    if (Is(call, "IMETHODCALL"))
        ReadIntrinsicCall(call, request);
    else if (Is(call, "METHODCALL"))
        ReadExtrinsicCall(call, request);
    else
        FailLooselyValid("The request holds no method call, but the element '" +
                         std::string(call.name()) + "'.");
    return request;
}

}  // namespace cimxml
