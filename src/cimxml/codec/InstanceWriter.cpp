#include <cimxml/codec/InstanceWriter.h>
#include <cimxml/codec/QualifierWriter.h>
#include <cimxml/codec/ValueWriter.h>
#include <host/schema/FindByName.h>

namespace cimxml {

namespace {

using host::ClassInfo;
using host::NamedValue;
using host::PropertyInfo;

std::string_view ElementName(CMPIType type) {
    if (type == CMPI_ref) return "PROPERTY.REFERENCE";
    return type & CMPI_ARRAY ? "PROPERTY.ARRAY" : "PROPERTY";
}

// What the class says about a property of one of its instances.
struct FromClass {
    std::string_view origin = {};          // empty: not wanted
    std::string_view referenceClass = {};  // of a reference
    EffectiveQualifiers qualifiers = {};
};

FromClass Describe(const mof::Schema& schema, const ClassInfo& cls, const PropertyInfo& info,
                   const Detail& detail) {
    FromClass said{.referenceClass = info.referenceClass};
    if (detail.includeClassOrigin) said.origin = info.origin;
    if (detail.includeQualifiers)
        said.qualifiers = QualifiersOfProperty(schema, cls, info.name, true);
    return said;
}

void WriteProperty(XmlWriter& xml, const mof::Schema* schema, const NamedValue& property,
                   const FromClass& fromClass) {
    const bool isReference = property.value.type == CMPI_ref;
    const std::string_view embedded = EmbeddedObjectText(property.value);
    const auto element =
        xml.Open(ElementName(property.value.type),
                 {{"NAME", property.name},
                  {"TYPE", TypeText(property.value.type), !isReference},
                  {"REFERENCECLASS", fromClass.referenceClass, !fromClass.referenceClass.empty()},
                  {"CLASSORIGIN", fromClass.origin, !fromClass.origin.empty()},
                  {"EmbeddedObject", embedded, !embedded.empty()}});
    if (schema) WriteQualifiers(xml, *schema, fromClass.qualifiers);
    WriteValue(xml, property.value);
}

// Properties stand in class order, so the next one's description is most often the next.
class InClassOrder {
public:
    explicit InClassOrder(const ClassInfo* info) : cls(info) {}

    const PropertyInfo* Find(const std::string& name) {
        if (!cls) return nullptr;
        const auto& all = cls->properties;
        while (next < all.size() && all[next].name != name) ++next;
        if (next < all.size()) return &all[next++];
        next = 0;
        return cls->FindProperty(name);
    }

private:
    const ClassInfo* const cls;
    std::size_t next = 0;
};

bool IsWanted(const NamedValue& property, const ClassInfo* cls, const ClassInfo* exposed,
              const Detail& detail) {
    if (!IsListed(detail.properties, property.name)) return false;
    if (exposed && !exposed->FindProperty(property.name)) return false;
    return !detail.localOnly || !cls ||
           host::FindByName(cls->declaration->properties, property.name);
}

}  // namespace

void WriteInstance(XmlWriter& xml, const host::ClassRepository& classes,
                   const host::Instance& instance, const Detail& detail, const ClassInfo* exposed) {
    const ClassInfo* const cls = classes.Find(instance.path.className);
    const mof::Schema& schema = classes.Schema();
    const auto element = xml.Open("INSTANCE", {{"CLASSNAME", instance.path.className}});
    if (cls && detail.includeQualifiers)
        WriteQualifiers(xml, schema, QualifiersOfClass(schema, *cls, true));
    InClassOrder properties(cls);
    for (const NamedValue& property : instance.properties) {
        if (!IsWanted(property, cls, exposed, detail)) continue;
        const PropertyInfo* const info = properties.Find(property.name);
        WriteProperty(xml, &schema, property,
                      cls && info ? Describe(schema, *cls, *info, detail) : FromClass());
    }
}

void WriteEmbeddedInstance(XmlWriter& xml, const host::Instance& instance) {
    const auto element = xml.Open("INSTANCE", {{"CLASSNAME", instance.path.className}});
    for (const NamedValue& property : instance.properties)
        WriteProperty(xml, nullptr, property, {});
}

}  // namespace cimxml
