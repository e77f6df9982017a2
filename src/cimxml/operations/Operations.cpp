#include <cimxml/codec/ResponseDocument.h>
#include <cimxml/codec/ValueWriter.h>
#include <cimxml/codec/XmlWriter.h>
#include <cimxml/operations/Call.h>
#include <cimxml/operations/CimStatus.h>
#include <cimxml/operations/OperationTable.h>
#include <cimxml/operations/Operations.h>
#include <host/Status.h>
#include <mof/Names.h>

namespace cimxml {

namespace {

void WriteError(XmlWriter& xml, const host::Status& status) {
    const int code = status.code <= kLastCimStatus ? static_cast<int>(status.code)
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

Operations::Operations(NameSpaces served) : nameSpaces(std::move(served)) {
    std::vector<const NameSpace*> all;
    for (const auto& nameSpace : nameSpaces) all.push_back(nameSpace.get());
    for (const auto& nameSpace : nameSpaces) nameSpace->Meet(all);
}

std::string Operations::Answer(const Request& request, const std::string& hostName) const {
    return ResponseDocument(request, [&](XmlWriter& xml) {
        WriteOutcome(xml, [&](XmlWriter& content) {
            if (request.isIntrinsic)
                AnswerIntrinsic(request, hostName, content);
            else
                AnswerExtrinsic(request, content);
        });
    });
}

const NameSpace& Operations::NameSpaceOf(const Request& request) const {
    for (const auto& nameSpace : nameSpaces)
        if (mof::SameName(nameSpace->name, request.nameSpace)) return *nameSpace;
    throw host::Failure(CMPI_RC_ERR_INVALID_NAMESPACE,
                        "Unknown namespace '" + request.nameSpace + "'.");
}

void Operations::AnswerIntrinsic(const Request& request, const std::string& hostName,
                                 XmlWriter& xml) const {
    const NameSpace& nameSpace = NameSpaceOf(request);
    const Operation& operation = OperationNamed(request.method);
    const Parameters parameters(request, operation.parameters);
    std::vector<host::NamedValue> out;
    const auto carryOut = [&] {
        operation.carryOut({nameSpace, parameters, hostName, *sessions, xml, out});
    };
    if (operation.returnsValue) {
        const auto value = xml.Open("IRETURNVALUE");
        carryOut();
    } else {
        carryOut();
    }
    for (const host::NamedValue& one : out)
        WriteParameterValue(xml, "PARAMVALUE", &one.name, one.value);
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
