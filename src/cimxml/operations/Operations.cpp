#include <cimxml/codec/ValueWriter.h>
#include <cimxml/codec/XmlWriter.h>
#include <cimxml/operations/AssociationOperations.h>
#include <cimxml/operations/Call.h>
#include <cimxml/operations/ClassOperations.h>
#include <cimxml/operations/InstanceOperations.h>
#include <cimxml/operations/Operations.h>
#include <host/Status.h>
#include <mof/Names.h>

#include <algorithm>

namespace cimxml {

namespace {

struct Operation {
    std::string_view name;
    ParameterNames parameters;
    void (*carryOut)(const Call&);
};

const Operation kOperations[] = {
    {"EnumerateClasses",
     {"ClassName", "DeepInheritance", "LocalOnly", "IncludeQualifiers", "IncludeClassOrigin"},
     EnumerateClasses},
    {"EnumerateClassNames", {"ClassName", "DeepInheritance"}, EnumerateClassNames},
    {"GetClass",
     {"ClassName", "LocalOnly", "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"},
     GetClass},
    {"EnumerateQualifiers", {}, EnumerateQualifiers},
    {"GetQualifier", {"QualifierName"}, GetQualifier},
    {"EnumerateInstances",
     {"ClassName", "LocalOnly", "DeepInheritance", "IncludeQualifiers", "IncludeClassOrigin",
      "PropertyList"},
     EnumerateInstances},
    {"EnumerateInstanceNames", {"ClassName"}, EnumerateInstanceNames},
    {"GetInstance",
     {"InstanceName", "LocalOnly", "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"},
     GetInstance},
    {"Associators",
     {"ObjectName", "AssocClass", "ResultClass", "Role", "ResultRole", "IncludeQualifiers",
      "IncludeClassOrigin", "PropertyList"},
     Associators},
    {"AssociatorNames",
     {"ObjectName", "AssocClass", "ResultClass", "Role", "ResultRole"},
     AssociatorNames},
    {"References",
     {"ObjectName", "ResultClass", "Role", "IncludeQualifiers", "IncludeClassOrigin",
      "PropertyList"},
     References},
    {"ReferenceNames", {"ObjectName", "ResultClass", "Role"}, ReferenceNames},
};

const Operation& OperationNamed(const std::string& name) {
    const auto* const found =
        std::find_if(std::begin(kOperations), std::end(kOperations),
                     [&](const Operation& one) { return mof::SameName(one.name, name); });
    if (found == std::end(kOperations))
        throw host::Failure(CMPI_RC_ERR_NOT_SUPPORTED,
                            "This server has no operation '" + name + "'.");
    return *found;
}

// CIM knows no codes above this one; CMPI does, for what happens between provider and host.
constexpr int kLastCimError = CMPI_RC_ERR_METHOD_NOT_FOUND;

void WriteError(XmlWriter& xml, const host::Status& status) {
    const int code = status.code <= kLastCimError ? static_cast<int>(status.code)
                                                  : static_cast<int>(CMPI_RC_ERR_FAILED);
    xml.EmptyElement("ERROR", {{"CODE", std::to_string(code)}, {"DESCRIPTION", status.text}});
}

// Writes what `write` writes, or the error that it throws.
template <class Write>
void WriteOutcome(XmlWriter& xml, const Write& write) {
    try {
        XmlWriter content;
        write(content);
        xml.Raw(content.Take());
    } catch (const host::Failure& failure) {
        WriteError(xml, failure.status);
    }
}

void WriteParameterValue(XmlWriter& xml, std::string_view element, const std::string* name,
                         const host::Value& value) {
    const std::string_view embedded = EmbeddedObjectText(value);
    const auto parameter =
        xml.Open(element, {{"NAME", name ? *name : std::string(), name != nullptr},
                           {"PARAMTYPE", TypeText(value.type)},
                           {"EmbeddedObject", embedded, !embedded.empty()}});
    WriteValue(xml, value);
}

}  // namespace

std::string Operations::Answer(const Request& request, const std::string& hostName) const {
    XmlWriter xml;
    xml.Raw("<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n");
    {
        const auto cim = xml.Open("CIM", {{"CIMVERSION", "2.0"}, {"DTDVERSION", "2.0"}});
        const auto message =
            xml.Open("MESSAGE", {{"ID", request.messageId}, {"PROTOCOLVERSION", "1.0"}});
        const auto response = xml.Open("SIMPLERSP");
        const auto call = xml.Open(request.isIntrinsic ? "IMETHODRESPONSE" : "METHODRESPONSE",
                                   {{"NAME", request.method}});
        WriteOutcome(xml, [&](XmlWriter& content) {
            if (request.isIntrinsic)
                AnswerIntrinsic(request, hostName, content);
            else
                AnswerExtrinsic(request, content);
        });
    }
    return xml.Take();
}

const NameSpace& Operations::NameSpaceOf(const Request& request) const {
    for (const auto& nameSpace : nameSpaces)
        if (mof::SameName(nameSpace->name, request.nameSpace)) return *nameSpace;
    throw host::Failure(CMPI_RC_ERR_INVALID_NAMESPACE,
                        "There is no name space '" + request.nameSpace + "'.");
}

void Operations::AnswerIntrinsic(const Request& request, const std::string& hostName,
                                 XmlWriter& xml) const {
    const Operation& operation = OperationNamed(request.method);
    const NameSpace& nameSpace = NameSpaceOf(request);
    const Parameters parameters(request, operation.parameters);
    const auto value = xml.Open("IRETURNVALUE");
    operation.carryOut({nameSpace, parameters, hostName, xml});
}

void Operations::AnswerExtrinsic(const Request& request, XmlWriter& xml) const {
    const NameSpace& nameSpace = NameSpaceOf(request);
    const auto answer = Checked(nameSpace.InvokeMethod(Located(nameSpace, request.target),
                                                       request.method, request.arguments));
    if (!answer.returnValue.IsNull())
        WriteParameterValue(xml, "RETURNVALUE", nullptr, answer.returnValue);
    for (const host::NamedValue& out : answer.out)
        WriteParameterValue(xml, "PARAMVALUE", &out.name, out.value);
}

}  // namespace cimxml
