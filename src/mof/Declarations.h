// The declarations so far, and checks of the next one against them.
#pragma once

#include <mof/Model.h>
#include <mof/Place.h>

#include <cstddef>
#include <string>
#include <unordered_map>

namespace mof {

// More superclasses than any model has; the limit keeps the work for each property small.
constexpr std::size_t kMaxSuperClasses = 64;

class Declarations {
public:
    // `place` is what a later declaration of the same name is told. They throw Error when the
    // name is taken.
    void AddQualifier(QualifierDeclaration declaration, const Place& place);
    void AddClass(Class cls, const Place& place);

    // These throw Error: a class must follow its superclass and the classes that it refers to
    // (except itself).
    void CheckSuperClass(const Class& cls, const Place& place) const;
    void CheckReference(const Class& cls, const std::string& member, const TypeName& type,
                        const Place& place) const;

    // Throws Error when a superclass has the property with another type. A reference may be
    // redeclared with a subclass of its class.
    void CheckOverride(const Class& cls, const Property& property, const Place& place) const;

    Schema TakeSchema();

private:
    struct Known {
        Place place;
        std::size_t index;  // in schema.classes
        std::size_t superClassCount;
        std::unordered_map<std::string, std::size_t> properties;  // folded name to index
    };

    const Known* Find(const std::string& className) const;
    bool IsSubclass(const std::string& ancestor, const std::string& className) const;
    bool MayOverride(const Class& cls, const TypeName& overriding,
                     const TypeName& overridden) const;

    Schema schema;
    std::unordered_map<std::string, Known> classes;     // by folded name
    std::unordered_map<std::string, Place> qualifiers;  // by folded name
};

}  // namespace mof
