#include <mof/DataTypes.h>
#include <mof/Declarations.h>
#include <mof/Names.h>

#include <utility>

namespace mof {

void Declarations::AddQualifier(QualifierDeclaration declaration, const Place& place) {
    const auto [known, isNew] = qualifiers.try_emplace(FoldedName(declaration.name), place);
    if (!isNew) {
        Fail(place, "Qualifier '" + declaration.name + "' is already declared at " +
                        ToText(known->second) + ".");
    }
    schema.qualifiers.push_back(std::move(declaration));
}

void Declarations::AddClass(Class cls, const Place& place) {
    if (const Known* known = Find(cls.name)) {
        Fail(place,
             "Class '" + cls.name + "' is already declared at " + ToText(known->place) + ".");
    }
    const Known* superClass = Find(cls.superClass);
    Known known{place,
                schema.classes.size(),
                superClass == nullptr ? 0 : superClass->superClassCount + 1,
                {}};
    for (std::size_t i = 0; i < cls.properties.size(); ++i) {
        known.properties.emplace(FoldedName(cls.properties[i].name), i);
    }
    classes.emplace(FoldedName(cls.name), std::move(known));
    schema.classes.push_back(std::move(cls));
}

void Declarations::CheckSuperClass(const Class& cls, const Place& place) const {
    const Known* superClass = Find(cls.superClass);
    if (superClass == nullptr) {
        Fail(place, "Class '" + cls.name + "' derives from '" + cls.superClass +
                        "', which is not declared before it.");
    }
    if (superClass->superClassCount >= kMaxSuperClasses) {
        Fail(place, "Class '" + cls.name + "' has more than " + std::to_string(kMaxSuperClasses) +
                        " superclasses.");
    }
}

void Declarations::CheckReference(const Class& cls, const std::string& member, const TypeName& type,
                                  const Place& place) const {
    const bool isKnown = SameName(type.referenceClass, cls.name) || Find(type.referenceClass);
    if (type.type == DataType::Reference && !isKnown) {
        Fail(place, "'" + member + "' of class '" + cls.name + "' refers to class '" +
                        type.referenceClass + "', which is not declared before it.");
    }
}

void Declarations::CheckOverride(const Class& cls, const Property& property,
                                 const Place& place) const {
    const std::string name = FoldedName(property.name);
    const Class* ancestor = &cls;
    while (const Known* known = Find(ancestor->superClass)) {
        ancestor = &schema.classes[known->index];
        const auto found = known->properties.find(name);
        if (found == known->properties.end()) {
            continue;
        }
        const TypeName& overridden = ancestor->properties[found->second].type;
        if (!MayOverride(cls, property.type, overridden)) {
            Fail(place, "Property '" + property.name + "' of class '" + cls.name +
                            "' has the type " + ToText(property.type) + ", but the one of class '" +
                            ancestor->name + "' that it overrides has the type " +
                            ToText(overridden) + ".");
        }
        return;
    }
}

Schema Declarations::TakeSchema() {
    classes.clear();
    qualifiers.clear();
    return std::exchange(schema, {});
}

const Declarations::Known* Declarations::Find(const std::string& className) const {
    const auto found = classes.find(FoldedName(className));
    return found == classes.end() ? nullptr : &found->second;
}

bool Declarations::IsSubclass(const std::string& ancestor, const std::string& className) const {
    for (const Known* known = Find(className); known != nullptr;) {
        const Class& cls = schema.classes[known->index];
        if (SameName(cls.name, ancestor)) {
            return true;
        }
        known = Find(cls.superClass);
    }
    return false;
}

bool Declarations::MayOverride(const Class& cls, const TypeName& overriding,
                               const TypeName& overridden) const {
    // The class itself is not known yet, its superclass is.
    const std::string& referenceClass =
        SameName(overriding.referenceClass, cls.name) ? cls.superClass : overriding.referenceClass;
    return overriding.type == overridden.type && overriding.isArray == overridden.isArray &&
           (overriding.type != DataType::Reference ||
            IsSubclass(overridden.referenceClass, referenceClass));
}

}  // namespace mof
