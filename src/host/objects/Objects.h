// The CMPI object types of the host: the data behind each.
#pragma once

#include <cmpi/cmpi.h>
#include <host/Value.h>
#include <host/objects/Object.h>

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace host {

template <>
struct ObjectType<CMPIString> {
    using Data = std::string;
    static constexpr const char* kName = "CMPIString";
    static const CMPIStringFT kTable;
};

struct ArrayData {
    CMPIType elementType = CMPI_null;
    std::vector<Value> elements;
};

template <>
struct ObjectType<CMPIArray> {
    using Data = ArrayData;
    static constexpr const char* kName = "CMPIArray";
    static const CMPIArrayFT kTable;
};

struct ObjectPathData {
    ObjectPath path;
    std::string hostName = {};
};

template <>
struct ObjectType<CMPIObjectPath> {
    using Data = ObjectPathData;
    static constexpr const char* kName = "CMPIObjectPath";
    static const CMPIObjectPathFT kTable;
};

struct InstanceData {
    Instance instance;  // all properties of the class; the path without keys, see PathOf
    const ClassInfo* cls = nullptr;
    std::optional<std::set<std::string>> filter = {};  // folded names; without it all are shown
    std::set<std::size_t> touched = {};                // indexes of what a provider set

    bool Shows(const std::string& property) const;
};

template <>
struct ObjectType<CMPIInstance> {
    using Data = InstanceData;
    static constexpr const char* kName = "CMPIInstance";
    static const CMPIInstanceFT kTable;
};

struct ArgsData {
    std::vector<NamedValue> values;
};

template <>
struct ObjectType<CMPIArgs> {
    using Data = ArgsData;
    static constexpr const char* kName = "CMPIArgs";
    static const CMPIArgsFT kTable;
};

struct DateTimeData {
    std::string text;  // CIM's 25 characters
};

template <>
struct ObjectType<CMPIDateTime> {
    using Data = DateTimeData;
    static constexpr const char* kName = "CMPIDateTime";
    static const CMPIDateTimeFT kTable;
};

struct EnumerationData {
    CMPIType elementType = CMPI_null;
    std::vector<Value> elements;
    std::size_t next = 0;
};

template <>
struct ObjectType<CMPIEnumeration> {
    using Data = EnumerationData;
    static constexpr const char* kName = "CMPIEnumeration";
    static const CMPIEnumerationFT kTable;
};

struct ContextData {
    std::vector<NamedValue> entries;
};

template <>
struct ObjectType<CMPIContext> {
    using Data = ContextData;
    static constexpr const char* kName = "CMPIContext";
    static const CMPIContextFT kTable;
};

// What a provider hands over in answer to a request.
struct ResultData {
    CMPIType accepted = CMPI_null;  // instances or references only; CMPI_null: any values
    std::vector<Value> values;
    bool isDone = false;
};

template <>
struct ObjectType<CMPIResult> {
    using Data = ResultData;
    static constexpr const char* kName = "CMPIResult";
    static const CMPIResultFT kTable;
};

// An instance of a class, as servers make it: every property of the class with its default value or
// NULL, and the keys of the path. Throws Failure when a key does not fit.
InstanceData NewInstance(const ClassInfo& cls, const ObjectPath& path);

// The instance as an object's data: the properties given, all others of the class NULL.
// Throws Failure for an unknown class, a property that it lacks, or a value that does not fit.
InstanceData Imported(const ClassRepository& classes, const Instance& instance);

// The instance as plain data: the properties that it shows, and its path with the keys.
Instance Exported(const InstanceData& data);

// The instance's path: its namespace and class, and the key properties that are not NULL.
ObjectPath PathOf(const InstanceData& data);

}  // namespace host
