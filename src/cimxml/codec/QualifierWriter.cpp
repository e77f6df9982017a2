#include <cimxml/codec/QualifierWriter.h>
#include <cimxml/codec/ValueWriter.h>
#include <host/schema/FindByName.h>
#include <host/schema/Qualifiers.h>
#include <host/schema/TypedValue.h>

#include <algorithm>

namespace cimxml {

namespace {

using host::ClassInfo;
using host::FindByName;
using mof::Qualifier;
using mof::QualifierDeclaration;
using mof::SameName;

bool Contains(const std::vector<std::string>& words, const char* word) {
    return std::any_of(words.begin(), words.end(),
                       [&](const std::string& candidate) { return SameName(candidate, word); });
}

// CIM's defaults: a qualifier may be overridden and is passed on to subclasses.
struct Flavors {
    explicit Flavors(const QualifierDeclaration* declaration) {
        if (!declaration) return;
        overridable = !Contains(declaration->flavors, "DisableOverride");
        toSubclass = !Contains(declaration->flavors, "Restricted");
        translatable = Contains(declaration->flavors, "Translatable");
    }

    bool overridable = true;
    bool toSubclass = true;
    bool translatable = false;
};

void AddMissing(EffectiveQualifiers& all, const mof::Schema& schema,
                const std::vector<Qualifier>& further, bool arePropagated) {
    for (const Qualifier& qualifier : further) {
        const bool isPresent = std::any_of(all.begin(), all.end(), [&](const auto& present) {
            return SameName(present.qualifier->name, qualifier.name);
        });
        const Flavors flavors(FindByName(schema.qualifiers, qualifier.name));
        if (!isPresent && (!arePropagated || flavors.toSubclass))
            all.push_back({&qualifier, arePropagated});
    }
}

// `own` gives the qualifiers that one class declares at the place, or null.
template <class Own>
EffectiveQualifiers Collect(const mof::Schema& schema, const ClassInfo& cls, bool withInherited,
                            const Own& own) {
    EffectiveQualifiers all;
    for (const ClassInfo* level = &cls; level; level = level->superClass) {
        if (const std::vector<Qualifier>* const declared = own(*level->declaration))
            AddMissing(all, schema, *declared, level != &cls);
        if (!withInherited) break;
    }
    return all;
}

template <class Member>
EffectiveQualifiers CollectOfMember(const mof::Schema& schema, const ClassInfo& cls,
                                    std::vector<Member> mof::Class::*members,
                                    const std::string& name, bool withInherited) {
    return Collect(schema, cls, withInherited, [&](const mof::Class& level) {
        const Member* const member = FindByName(level.*members, name);
        return member ? &member->qualifiers : nullptr;
    });
}

std::string_view Flag(bool flag) { return flag ? "true" : "false"; }

void WriteQualifier(XmlWriter& xml, const mof::Schema& schema, const EffectiveQualifier& one) {
    const auto* const declaration = FindByName(schema.qualifiers, one.qualifier->name);
    const host::Value value = host::QualifierValue(*one.qualifier, declaration);
    const Flavors flavors(declaration);
    const auto element = xml.Open("QUALIFIER", {{"NAME", one.qualifier->name},
                                                {"TYPE", TypeText(value.type)},
                                                {"PROPAGATED", "true", one.isPropagated},
                                                {"OVERRIDABLE", "false", !flavors.overridable},
                                                {"TOSUBCLASS", "false", !flavors.toSubclass},
                                                {"TRANSLATABLE", "true", flavors.translatable}});
    WriteValue(xml, value);
}

void WriteScope(XmlWriter& xml, const QualifierDeclaration& declaration) {
    const auto includes = [&](const char* scope) {
        return Contains(declaration.scopes, scope) || Contains(declaration.scopes, "any");
    };
    xml.EmptyElement("SCOPE", {{"CLASS", "true", includes("class")},
                               {"ASSOCIATION", "true", includes("association")},
                               {"REFERENCE", "true", includes("reference")},
                               {"PROPERTY", "true", includes("property")},
                               {"METHOD", "true", includes("method")},
                               {"PARAMETER", "true", includes("parameter")},
                               {"INDICATION", "true", includes("indication")}});
}

}  // namespace

EffectiveQualifiers QualifiersOfClass(const mof::Schema& schema, const ClassInfo& cls,
                                      bool withInherited) {
    return Collect(schema, cls, withInherited,
                   [](const mof::Class& level) { return &level.qualifiers; });
}

EffectiveQualifiers QualifiersOfProperty(const mof::Schema& schema, const ClassInfo& cls,
                                         const std::string& property, bool withInherited) {
    return CollectOfMember(schema, cls, &mof::Class::properties, property, withInherited);
}

EffectiveQualifiers QualifiersOfMethod(const mof::Schema& schema, const ClassInfo& cls,
                                       const std::string& method, bool withInherited) {
    return CollectOfMember(schema, cls, &mof::Class::methods, method, withInherited);
}

void WriteQualifiers(XmlWriter& xml, const mof::Schema& schema, const EffectiveQualifiers& all) {
    for (const EffectiveQualifier& one : all) WriteQualifier(xml, schema, one);
}

void WriteQualifiers(XmlWriter& xml, const mof::Schema& schema, const std::vector<Qualifier>& own) {
    for (const Qualifier& qualifier : own) WriteQualifier(xml, schema, {&qualifier, false});
}

void WriteQualifierDeclaration(XmlWriter& xml, const QualifierDeclaration& declaration) {
    const host::Value value =
        host::FromLiteral(declaration.defaultValue, host::TypeOf(declaration.type));
    const Flavors flavors(&declaration);
    const auto element =
        xml.Open("QUALIFIER.DECLARATION", {{"NAME", declaration.name},
                                           {"TYPE", TypeText(value.type)},
                                           {"ISARRAY", Flag(declaration.type.isArray)},
                                           {"OVERRIDABLE", Flag(flavors.overridable)},
                                           {"TOSUBCLASS", Flag(flavors.toSubclass)},
                                           {"TRANSLATABLE", Flag(flavors.translatable)}});
    WriteScope(xml, declaration);
    WriteValue(xml, value);
}

}  // namespace cimxml
