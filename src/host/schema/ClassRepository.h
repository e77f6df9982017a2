// The classes of the schema, prepared for requests: properties in class order with their types,
// keys and default values, and who derives from whom. Read-only, so any thread may ask.
#pragma once

#include <host/Value.h>
#include <mof/Model.h>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace host {

struct PropertyInfo {
    std::string name;
    CMPIType type = CMPI_null;
    bool isKey = false;
    bool isEmbedded = false;     // a string that holds an instance
    std::string origin;          // the class that introduced it
    std::string referenceClass;  // of a reference, else empty
    Value defaultValue;          // NULL when the class declares none

    // True when a value of that type may be stored.
    bool Accepts(CMPIType valueType) const;
};

struct ClassInfo {
    const mof::Class* declaration = nullptr;
    const ClassInfo* superClass = nullptr;  // null for a root class
    std::vector<PropertyInfo> properties;   // inherited first
    bool isAssociation = false;

    const std::string& Name() const { return declaration->name; }

    // The property of that name in any letter case, or null.
    const PropertyInfo* FindProperty(const std::string& name) const;

    // The method of that name in any letter case, inherited ones included, or null.
    const mof::Method* FindMethod(const std::string& name) const;

    // True when the class has that name or derives from the class of that name.
    bool IsA(const std::string& ancestor) const;
};

class ClassRepository {
public:
    explicit ClassRepository(mof::Schema schema);

    ClassRepository(const ClassRepository&) = delete;
    ClassRepository& operator=(const ClassRepository&) = delete;

    const mof::Schema& Schema() const { return schema; }

    // The class of that name in any letter case, or null.
    const ClassInfo* Find(const std::string& name) const;

private:
    mof::Schema schema;
    std::unordered_map<std::string, std::unique_ptr<ClassInfo>> classes;  // by folded name
};

}  // namespace host
