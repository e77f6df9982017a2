#include <cimxml/codec/PathReader.h>
#include <host/NumberText.h>
#include <mof/Names.h>

#include <memory>
#include <utility>
#include <vector>

namespace cimxml {

namespace {

using host::ObjectPath;
using host::Value;

Value ReferenceTo(ObjectPath path) {
    return {CMPI_ref, std::make_shared<const ObjectPath>(std::move(path))};
}

Value NumericKey(const std::string& text) {
    if (const auto number = host::NumberIn<std::uint64_t>(text)) return {CMPI_uint64, *number};
    if (const auto number = host::NumberIn<std::int64_t>(text)) return {CMPI_sint64, *number};
    if (const auto number = host::NumberIn<double>(text)) return {CMPI_real64, *number};
    FailLooselyValid("The key value '" + text + "' is not a number.");
}

Value BooleanKey(const std::string& text) {
    if (mof::SameName(text, "true")) return {CMPI_boolean, true};
    if (mof::SameName(text, "false")) return {CMPI_boolean, false};
    FailLooselyValid("The key value '" + text + "' is neither TRUE nor FALSE.");
}

Value ReadKeyValue(const Element& keyValue) {
    const std::string& text = keyValue.text;
    const std::string* const type = keyValue.FindAttribute("VALUETYPE");
    if (!type || *type == "string") return {CMPI_string, text};
    if (*type == "numeric") return NumericKey(text);
    if (*type == "boolean") return BooleanKey(text);
    FailLooselyValid("There are no keys of the VALUETYPE '" + *type + "'.");
}

Value ReadKey(const Element& value) {
    if (value.Is("KEYVALUE")) return ReadKeyValue(value);
    if (value.Is("VALUE.REFERENCE")) return ReadValue(value);
    FailLooselyValid("A key cannot hold the element '" + value.name + "'.");
}

template <class ReadElement>
Value ReadArray(const Element& array, CMPIType type, const char* elementName,
                const ReadElement& read) {
    std::vector<Value> elements;
    for (const Element& element : array.children) {
        if (element.Is("VALUE.NULL"))
            elements.push_back({});
        else if (element.Is(elementName))
            elements.push_back(read(element));
        else
            FailLooselyValid("An array cannot hold the element '" + element.name + "'.");
    }
    return {static_cast<CMPIType>(CMPI_ARRAY | type), std::move(elements)};
}

// The parts of LOCALINSTANCEPATH, INSTANCEPATH, LOCALCLASSPATH and CLASSPATH.
ObjectPath ReadWithNameSpace(const Element& path, const Element& localNameSpacePath,
                             const char* nameElement) {
    ObjectPath read = ReadPath(path.Child(nameElement));
    read.nameSpace = ReadNameSpace(localNameSpacePath);
    return read;
}

const Element& LocalPathIn(const Element& path) {
    return path.Child("NAMESPACEPATH").Child("LOCALNAMESPACEPATH");
}

}  // namespace

std::string ReadNameSpace(const Element& localNameSpacePath) {
    std::string nameSpace;
    for (const Element& part : localNameSpacePath.children) {
        if (!part.Is("NAMESPACE"))
            FailLooselyValid("A namespace cannot hold the element '" + part.name + "'.");
        if (!nameSpace.empty()) nameSpace += '/';
        nameSpace += part.Attribute("NAME");
    }
    if (nameSpace.empty()) FailLooselyValid("The request names no namespace.");
    return nameSpace;
}

ObjectPath ReadInstanceName(const Element& instanceName) {
    ObjectPath path{{}, instanceName.Attribute("CLASSNAME"), {}};
    for (const Element& key : instanceName.children) {
        if (key.Is("KEYBINDING"))
            path.keys.push_back({key.Attribute("NAME"), ReadKey(key.OnlyChild())});
        else
            path.keys.push_back({{}, ReadKey(key)});
    }
    return path;
}

ObjectPath ReadPath(const Element& path) {
    if (path.Is("INSTANCENAME")) return ReadInstanceName(path);
    if (path.Is("CLASSNAME")) return {{}, path.Attribute("NAME"), {}};
    if (path.Is("LOCALINSTANCEPATH"))
        return ReadWithNameSpace(path, path.Child("LOCALNAMESPACEPATH"), "INSTANCENAME");
    if (path.Is("INSTANCEPATH")) return ReadWithNameSpace(path, LocalPathIn(path), "INSTANCENAME");
    if (path.Is("LOCALCLASSPATH"))
        return ReadWithNameSpace(path, path.Child("LOCALNAMESPACEPATH"), "CLASSNAME");
    if (path.Is("CLASSPATH")) return ReadWithNameSpace(path, LocalPathIn(path), "CLASSNAME");
    FailLooselyValid("The element '" + path.name + "' is not an object path.");
}

Value ReadValue(const Element& value) {
    if (value.Is("VALUE")) return {CMPI_string, value.text};
    if (value.Is("VALUE.REFERENCE")) return ReferenceTo(ReadPath(value.OnlyChild()));
    if (value.Is("VALUE.ARRAY")) return ReadArray(value, CMPI_string, "VALUE", ReadValue);
    if (value.Is("VALUE.REFARRAY")) return ReadArray(value, CMPI_ref, "VALUE.REFERENCE", ReadValue);
    FailLooselyValid("The element '" + value.name + "' is not a value.");
}

}  // namespace cimxml
