#include <cimxml/codec/ClassWriter.h>
#include <cimxml/codec/QualifierWriter.h>
#include <cimxml/codec/ValueWriter.h>
#include <host/schema/FindByName.h>
#include <host/schema/TypedValue.h>

#include <algorithm>

namespace cimxml {

namespace {

using host::ClassInfo;
using host::FindByName;
using host::PropertyInfo;

class ClassContent {
public:
    ClassContent(XmlWriter& xmlWriter, const mof::Schema& schemaOfClass, const ClassInfo& info,
                 const Detail& wanted)
        : xml(xmlWriter), schema(schemaOfClass), cls(info), detail(wanted) {}

    void Write() const {
        if (detail.includeQualifiers)
            WriteQualifiers(xml, schema, QualifiersOfClass(schema, cls, !detail.localOnly));
        for (const PropertyInfo& property : cls.properties) {
            const bool isOwn = FindByName(cls.declaration->properties, property.name) != nullptr;
            if ((isOwn || !detail.localOnly) && IsListed(detail.properties, property.name))
                WriteProperty(property, isOwn);
        }
        for (const auto& method : mof::AllMethods(schema, *cls.declaration)) {
            const bool isOwn = method.declarer == cls.declaration;
            if (isOwn || !detail.localOnly) WriteMethod(method, isOwn);
        }
    }

private:
    static std::string_view ElementName(const PropertyInfo& property) {
        if (property.type == CMPI_ref) return "PROPERTY.REFERENCE";
        return property.type & CMPI_ARRAY ? "PROPERTY.ARRAY" : "PROPERTY";
    }

    static std::string_view EmbeddedObject(const EffectiveQualifiers& qualifiers) {
        const bool isInstance =
            std::any_of(qualifiers.begin(), qualifiers.end(), [](const EffectiveQualifier& one) {
                return mof::SameName(one.qualifier->name, "EmbeddedInstance");
            });
        return isInstance ? "instance" : "object";
    }

    void WriteProperty(const PropertyInfo& property, bool isOwn) const {
        const auto qualifiers = QualifiersOfProperty(schema, cls, property.name, !detail.localOnly);
        const bool isReference = property.type == CMPI_ref;
        const auto element =
            xml.Open(ElementName(property),
                     {{"NAME", property.name},
                      {"TYPE", TypeText(property.type), !isReference},
                      {"REFERENCECLASS", property.referenceClass, isReference},
                      {"CLASSORIGIN", property.origin, detail.includeClassOrigin},
                      {"PROPAGATED", "true", !isOwn},
                      {"EmbeddedObject", EmbeddedObject(qualifiers), property.isEmbedded}});
        if (detail.includeQualifiers) WriteQualifiers(xml, schema, qualifiers);
        if (!isReference) WriteValue(xml, property.defaultValue);
    }

    void WriteMethod(const mof::Inherited<mof::Method>& inherited, bool isOwn) const {
        const mof::Method& method = *inherited.member;
        const auto element =
            xml.Open("METHOD", {{"NAME", method.name},
                                {"TYPE", TypeText(host::TypeOf(method.returnType))},
                                {"CLASSORIGIN", inherited.origin->name, detail.includeClassOrigin},
                                {"PROPAGATED", "true", !isOwn}});
        if (detail.includeQualifiers)
            WriteQualifiers(xml, schema,
                            QualifiersOfMethod(schema, cls, method.name, !detail.localOnly));
        for (const mof::Parameter& parameter : method.parameters) WriteParameter(parameter);
    }

    void WriteParameter(const mof::Parameter& parameter) const {
        const bool isReference = parameter.type.type == mof::DataType::Reference;
        const bool isArray = parameter.type.isArray;
        const std::string_view name = isReference
                                          ? (isArray ? "PARAMETER.REFARRAY" : "PARAMETER.REFERENCE")
                                          : (isArray ? "PARAMETER.ARRAY" : "PARAMETER");
        const auto element =
            xml.Open(name, {{"NAME", parameter.name},
                            {"TYPE", TypeText(host::TypeOf(parameter.type)), !isReference},
                            {"REFERENCECLASS", parameter.type.referenceClass, isReference}});
        if (detail.includeQualifiers) WriteQualifiers(xml, schema, parameter.qualifiers);
    }

    XmlWriter& xml;
    const mof::Schema& schema;
    const ClassInfo& cls;
    const Detail& detail;
};

}  // namespace

bool IsListed(host::PropertyList properties, const std::string& name) {
    return !properties ||
           std::any_of(properties->begin(), properties->end(),
                       [&](const std::string& listed) { return mof::SameName(listed, name); });
}

void WriteClass(XmlWriter& xml, const mof::Schema& schema, const ClassInfo& cls,
                const Detail& detail) {
    const std::string& superClass = cls.declaration->superClass;
    const auto element =
        xml.Open("CLASS", {{"NAME", cls.Name()}, {"SUPERCLASS", superClass, !superClass.empty()}});
    ClassContent(xml, schema, cls, detail).Write();
}

}  // namespace cimxml
