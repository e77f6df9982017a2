#include "OperationsFixture.h"

#include <cimxml/codec/DocumentReader.h>

namespace cimxml {

namespace {

// What is inside the response's innermost envelope.
std::string Inside(const std::string& document) {
    constexpr std::string_view kHead =
        "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
        "<MESSAGE ID=\"42\" PROTOCOLVERSION=\"1.0\"><SIMPLERSP><";
    constexpr std::string_view kTail = "METHODRESPONSE></SIMPLERSP></MESSAGE></CIM>";
    EXPECT_TRUE(document.starts_with(kHead)) << document;
    EXPECT_TRUE(document.ends_with(kTail)) << document;
    const auto begin = document.find('>', kHead.size()) + 1;
    return document.substr(begin, document.rfind("</", document.size() - kTail.size()) - begin);
}

constexpr std::size_t kAnswerDepth = 24;

// The values of the attribute in every such element, in document order.
void Collect(const Element& in, const std::string& element, const std::string& attribute,
             std::vector<std::string>& values) {
    if (const auto* const value = in.Is(element) ? in.FindAttribute(attribute) : nullptr)
        values.push_back(*value);
    for (const Element& child : in.children) Collect(child, element, attribute, values);
}

}  // namespace

Operations OperationsTest::MakeOperations() {
    NameSpaces all = ProviderNameSpaces(host);
    all.push_back(InteropNameSpace(INTEROP_SCHEMA, "1.2.3", {"root/test", "root/other"}));
    return Operations(std::move(all));
}

std::string OperationsTest::Call(const std::string& operation, std::vector<Parameter> parameters,
                                 const std::string& nameSpace) const {
    return Inside(operations.Answer({.messageId = "42",
                                     .isIntrinsic = true,
                                     .method = operation,
                                     .nameSpace = nameSpace,
                                     .parameters = std::move(parameters)},
                                    "server:5988"));
}

std::string OperationsTest::Invoke(const host::ObjectPath& target, const std::string& method,
                                   std::vector<host::NamedValue> arguments) const {
    return Inside(operations.Answer({.messageId = "42",
                                     .isIntrinsic = false,
                                     .method = method,
                                     .nameSpace = target.nameSpace,
                                     .parameters = {},
                                     .target = target,
                                     .arguments = std::move(arguments)},
                                    "server:5988"));
}

std::vector<std::string> OperationsTest::All(const std::string& xml, const std::string& element,
                                             const std::string& attribute) {
    std::vector<std::string> values;
    Collect(ReadDocument("<TOP>" + xml + "</TOP>", kAnswerDepth), element, attribute, values);
    return values;
}

std::string OperationsTest::ErrorIn(const std::string& xml) {
    const auto codes = All(xml, "ERROR", "CODE");
    return codes.empty() ? "" : codes[0] + ": " + All(xml, "ERROR", "DESCRIPTION")[0];
}

host::ObjectPath OperationsTest::Thing(const std::string& name) {
    return {"root/test", "T_Thing", {{"Name", {CMPI_string, name}}}};
}

}  // namespace cimxml
