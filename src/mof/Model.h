// The content of a MOF file as data: what the reader yields, and what the class generator and the
// embedded host work on. Names are compared without regard to case, as CIM demands; they are kept
// in the letter case in which they were declared.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace mof {

enum class DataType {
    Boolean,
    UInt8,
    SInt8,
    UInt16,
    SInt16,
    UInt32,
    SInt32,
    UInt64,
    SInt64,
    Real32,
    Real64,
    Char16,
    String,
    DateTime,
    Reference,
};

// A literal: NULL (monostate), boolean, signed or unsigned integer (unsigned only above 2^63 - 1),
// real, text, or an array of scalars.
using Scalar = std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double, std::string>;
using Literal = std::variant<Scalar, std::vector<Scalar>>;

struct Qualifier {
    std::string name;
    Literal value;
};

// The type of a property, parameter or method.
struct TypeName {
    DataType type = DataType::String;
    bool isArray = false;
    std::string referenceClass;  // of a Reference, else empty
};

struct Property {
    std::string name;
    TypeName type;
    std::vector<Qualifier> qualifiers;
    std::optional<Literal> defaultValue;
};

struct Parameter {
    std::string name;
    TypeName type;
    std::vector<Qualifier> qualifiers;
};

struct Method {
    std::string name;
    TypeName returnType;
    std::vector<Parameter> parameters;
    std::vector<Qualifier> qualifiers;
};

struct Class {
    std::string name;
    std::string superClass;  // empty for a root class
    std::vector<Qualifier> qualifiers;
    std::vector<Property> properties;  // those that the class itself declares, references included
    std::vector<Method> methods;
};

struct QualifierDeclaration {
    std::string name;
    TypeName type;
    Literal defaultValue;
    std::vector<std::string> scopes;   // as written: "property", "reference", "any", ...
    std::vector<std::string> flavors;  // as written: "DisableOverride", "ToSubclass", ...
};

struct Schema {
    std::vector<QualifierDeclaration> qualifiers;
    std::vector<Class> classes;  // in the order of declaration

    // The class of that name in any letter case, or null.
    const Class* Find(const std::string& className) const;
};

// A property or method as a class has it, inherited ones included.
template <class Member>
struct Inherited {
    const Member* member;   // the declaration nearest to the class
    const Class* origin;    // the class that introduced the name
    const Class* declarer;  // the class whose declaration `member` is
};

// All members of a class: inherited first, each at the place of its first declaration, described by
// the declaration nearest to the class. The class must belong to the schema.
std::vector<Inherited<Property>> AllProperties(const Schema& schema, const Class& cls);
std::vector<Inherited<Method>> AllMethods(const Schema& schema, const Class& cls);

// The qualifier of that name in any letter case, or null.
const Qualifier* FindQualifier(const std::vector<Qualifier>& qualifiers, const std::string& name);

// True when the qualifier stands there with the value true (or without a value).
bool HasFlag(const std::vector<Qualifier>& qualifiers, const std::string& name);

// True for a property with the Key qualifier, declared there or in a declaration that it overrides.
bool IsKey(const Schema& schema, const Class& cls, const std::string& propertyName);

// True when the class or one of its superclasses has the Association qualifier.
bool IsAssociation(const Schema& schema, const Class& cls);

// Whether a caller passes the parameter in, and whether the method gives it back. CIM's default of
// the In qualifier is true.
bool IsIn(const Parameter& parameter);
bool IsOut(const Parameter& parameter);

// True when the class is the ancestor or derives from it.
bool IsSubclass(const Schema& schema, const std::string& ancestor, const std::string& className);

}  // namespace mof
