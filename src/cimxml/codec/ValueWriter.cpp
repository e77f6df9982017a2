#include <cimxml/codec/InstanceWriter.h>
#include <cimxml/codec/Utf8.h>
#include <cimxml/codec/ValueWriter.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <string>

namespace cimxml {

namespace {

using host::Instance;
using host::ObjectPath;
using host::Value;
using Reference = std::shared_ptr<const ObjectPath>;
using Embedded = std::shared_ptr<const Instance>;

constexpr std::size_t kLongestReal = 32;  // characters of a real's shortest exact text

template <class Real>
std::string ShortestText(Real real) {
    char buffer[kLongestReal];
    return {buffer, std::to_chars(std::begin(buffer), std::end(buffer), real).ptr};
}

// CIM requires a decimal point in every real, and has its own spelling for infinity and NaN.
std::string RealText(double real, CMPIType type) {
    if (std::isnan(real)) return "NaN";
    if (std::isinf(real)) return real < 0 ? "-INF" : "INF";
    std::string text =
        type == CMPI_real32 ? ShortestText(static_cast<float>(real)) : ShortestText(real);
    if (text.find('.') == std::string::npos)
        text.insert(std::min(text.find('e'), text.size()), ".0");
    return text;
}

// The text of a scalar that is neither NULL nor a reference.
struct ScalarText {
    CMPIType type;

    std::string operator()(bool flag) const { return flag ? "TRUE" : "FALSE"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(std::uint64_t number) const {
        return type == CMPI_char16 ? FromChar16(static_cast<std::uint16_t>(number))
                                   : std::to_string(number);
    }
    std::string operator()(double real) const { return RealText(real, type); }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(const Embedded& instance) const {
        XmlWriter xml;
        WriteEmbeddedInstance(xml, *instance);
        return xml.Take();
    }
    template <class Other>
    std::string operator()(const Other&) const {
        return {};
    }
};

std::string TextOf(const Value& value) { return std::visit(ScalarText{value.type}, value.data); }

// References in values always have a full path; the host is this server.
void WriteReference(XmlWriter& xml, const ObjectPath& path) {
    const auto reference = xml.Open("VALUE.REFERENCE");
    if (path.nameSpace.empty()) return WriteInstanceName(xml, path);
    const auto local = xml.Open("LOCALINSTANCEPATH");
    WriteNameSpace(xml, path.nameSpace);
    WriteInstanceName(xml, path);
}

void WriteArray(XmlWriter& xml, const std::vector<Value>& elements, bool ofReferences) {
    const auto array = xml.Open(ofReferences ? "VALUE.REFARRAY" : "VALUE.ARRAY");
    for (const Value& element : elements) {
        if (element.IsNull())
            xml.EmptyElement("VALUE.NULL");
        else
            WriteValue(xml, element);
    }
}

std::string_view KeyTypeText(const Value& value) {
    switch (value.data.index()) {
        case 1:
            return "boolean";
        case 2:
        case 3:
            return value.type == CMPI_char16 ? "string" : "numeric";
        case 4:
            return "numeric";
        default:
            return "string";
    }
}

void WriteKey(XmlWriter& xml, const host::NamedValue& key) {
    const auto binding = xml.Open("KEYBINDING", {{"NAME", key.name}});
    if (const auto* reference = std::get_if<Reference>(&key.value.data))
        return WriteReference(xml, **reference);
    const auto value = xml.Open("KEYVALUE", {{"VALUETYPE", KeyTypeText(key.value)}});
    xml.Text(TextOf(key.value));
}

void WriteNameSpacePath(XmlWriter& xml, const std::string& nameSpace, const std::string& hostName) {
    const auto element = xml.Open("NAMESPACEPATH");
    xml.TextElement("HOST", hostName);
    WriteNameSpace(xml, nameSpace);
}

}  // namespace

std::string_view TypeText(CMPIType type) {
    switch (type & ~CMPI_ARRAY) {
        case CMPI_boolean:
            return "boolean";
        case CMPI_char16:
            return "char16";
        case CMPI_uint8:
            return "uint8";
        case CMPI_uint16:
            return "uint16";
        case CMPI_uint32:
            return "uint32";
        case CMPI_uint64:
            return "uint64";
        case CMPI_sint8:
            return "sint8";
        case CMPI_sint16:
            return "sint16";
        case CMPI_sint32:
            return "sint32";
        case CMPI_sint64:
            return "sint64";
        case CMPI_real32:
            return "real32";
        case CMPI_real64:
            return "real64";
        case CMPI_dateTime:
            return "datetime";
        case CMPI_ref:
            return "reference";
        default:  // an embedded instance travels as text
            return "string";
    }
}

std::string_view EmbeddedObjectText(const Value& value) {
    return (value.type & ~CMPI_ARRAY) == CMPI_instance ? "instance" : "";
}

void WriteValue(XmlWriter& xml, const Value& value) {
    if (value.IsNull()) return;
    if (const auto* elements = std::get_if<std::vector<Value>>(&value.data))
        return WriteArray(xml, *elements, (value.type & ~CMPI_ARRAY) == CMPI_ref);
    if (const auto* reference = std::get_if<Reference>(&value.data))
        return WriteReference(xml, **reference);
    xml.TextElement("VALUE", TextOf(value));
}

void WriteNameSpace(XmlWriter& xml, const std::string& nameSpace) {
    const auto element = xml.Open("LOCALNAMESPACEPATH");
    std::string_view rest = nameSpace;
    while (!rest.empty()) {
        const auto end = std::min(rest.find('/'), rest.size());
        if (end > 0) xml.EmptyElement("NAMESPACE", {{"NAME", rest.substr(0, end)}});
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

void WriteInstanceName(XmlWriter& xml, const ObjectPath& path) {
    const auto element = xml.Open("INSTANCENAME", {{"CLASSNAME", path.className}});
    for (const host::NamedValue& key : path.keys)
        if (!key.value.IsNull()) WriteKey(xml, key);
}

void WriteInstancePath(XmlWriter& xml, const ObjectPath& path, const std::string& hostName) {
    const auto element = xml.Open("INSTANCEPATH");
    WriteNameSpacePath(xml, path.nameSpace, hostName);
    WriteInstanceName(xml, path);
}

void WriteClassPath(XmlWriter& xml, const ObjectPath& path, const std::string& hostName) {
    const auto element = xml.Open("CLASSPATH");
    WriteNameSpacePath(xml, path.nameSpace, hostName);
    xml.EmptyElement("CLASSNAME", {{"NAME", path.className}});
}

}  // namespace cimxml
