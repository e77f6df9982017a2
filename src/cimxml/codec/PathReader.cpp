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
    FailLooselyValid("The key value '" + text + "' is no number.");
}

Value BooleanKey(const std::string& text) {
    if (mof::SameName(text, "true")) return {CMPI_boolean, true};
    if (mof::SameName(text, "false")) return {CMPI_boolean, false};
    FailLooselyValid("The key value '" + text + "' is neither TRUE nor FALSE.");
}

Value ReadKeyValue(Node keyValue) {
    const std::string text = TextOf(keyValue);
    const std::string type = keyValue.attribute("VALUETYPE").as_string("string");
    if (type == "string") return {CMPI_string, text};
    if (type == "numeric") return NumericKey(text);
    if (type == "boolean") return BooleanKey(text);
    FailLooselyValid("There are no keys of the VALUETYPE '" + type + "'.");
}

Value ReadKey(Node value) {
    if (Is(value, "KEYVALUE")) return ReadKeyValue(value);
    if (Is(value, "VALUE.REFERENCE")) return ReadValue(value);
    FailLooselyValid("A key cannot hold the element '" + std::string(value.name()) + "'.");
}

template <class ReadElement>
Value ReadArray(Node array, CMPIType type, const char* elementName, const ReadElement& read) {
    std::vector<Value> elements;
    for (Node element = First(array); element; element = Next(element)) {
        if (Is(element, "VALUE.NULL"))
            elements.push_back({});
        else if (Is(element, elementName))
            elements.push_back(read(element));
        else
            FailLooselyValid("An array cannot hold the element '" + std::string(element.name()) +
                             "'.");
    }
    return {static_cast<CMPIType>(CMPI_ARRAY | type), std::move(elements)};
}

// The parts of LOCALINSTANCEPATH, INSTANCEPATH, LOCALCLASSPATH and CLASSPATH.
ObjectPath ReadWithNameSpace(Node path, Node localNameSpacePath, const char* nameElement) {
    ObjectPath read = ReadPath(Child(path, nameElement));
    read.nameSpace = ReadNameSpace(localNameSpacePath);
    return read;
}

Node LocalPathIn(Node path) { return Child(Child(path, "NAMESPACEPATH"), "LOCALNAMESPACEPATH"); }

}  // namespace

std::string ReadNameSpace(Node localNameSpacePath) {
    std::string nameSpace;
    for (Node part = First(localNameSpacePath); part; part = Next(part)) {
        if (!Is(part, "NAMESPACE"))
            FailLooselyValid("A name space cannot hold the element '" + std::string(part.name()) +
                             "'.");
        if (!nameSpace.empty()) nameSpace += '/';
        nameSpace += Required(part, "NAME");
    }
    if (nameSpace.empty()) FailLooselyValid("The request names no name space.");
    return nameSpace;
}

ObjectPath ReadInstanceName(Node instanceName) {
    ObjectPath path{{}, Required(instanceName, "CLASSNAME"), {}};
    for (Node key = First(instanceName); key; key = Next(key)) {
        if (Is(key, "KEYBINDING"))
            path.keys.push_back({Required(key, "NAME"), ReadKey(OnlyChild(key))});
        else
            path.keys.push_back({{}, ReadKey(key)});
    }
    return path;
}

ObjectPath ReadPath(Node path) {
    if (Is(path, "INSTANCENAME")) return ReadInstanceName(path);
    if (Is(path, "CLASSNAME")) return {{}, Required(path, "NAME"), {}};
    if (Is(path, "LOCALINSTANCEPATH"))
        return ReadWithNameSpace(path, Child(path, "LOCALNAMESPACEPATH"), "INSTANCENAME");
    if (Is(path, "INSTANCEPATH")) return ReadWithNameSpace(path, LocalPathIn(path), "INSTANCENAME");
    if (Is(path, "LOCALCLASSPATH"))
        return ReadWithNameSpace(path, Child(path, "LOCALNAMESPACEPATH"), "CLASSNAME");
    if (Is(path, "CLASSPATH")) return ReadWithNameSpace(path, LocalPathIn(path), "CLASSNAME");
    FailLooselyValid("The element '" + std::string(path.name()) + "' is no object path.");
}

Value ReadValue(Node value) {
    if (Is(value, "VALUE")) return {CMPI_string, TextOf(value)};
    if (Is(value, "VALUE.REFERENCE")) return ReferenceTo(ReadPath(OnlyChild(value)));
    if (Is(value, "VALUE.ARRAY")) return ReadArray(value, CMPI_string, "VALUE", ReadValue);
    if (Is(value, "VALUE.REFARRAY"))
        return ReadArray(value, CMPI_ref, "VALUE.REFERENCE", ReadValue);
    FailLooselyValid("The element '" + std::string(value.name()) + "' is no value.");
}

}  // namespace cimxml
