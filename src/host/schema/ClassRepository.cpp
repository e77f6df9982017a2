#include <host/schema/ClassRepository.h>
#include <host/schema/FindByName.h>
#include <host/schema/TypedValue.h>
#include <mof/Names.h>

#include <utility>

namespace host {

namespace {

PropertyInfo MakeProperty(const mof::Schema& schema, const mof::Class& cls,
                          const mof::Inherited<mof::Property>& inherited) {
    const mof::Property& property = *inherited.member;
    PropertyInfo info;
    info.name = property.name;
    info.origin = inherited.origin->name;
    info.type = TypeOf(property.type);
    info.isKey = mof::IsKey(schema, cls, property.name);
    info.isEmbedded = mof::HasFlag(property.qualifiers, "EmbeddedObject") ||
                      mof::FindQualifier(property.qualifiers, "EmbeddedInstance");
    info.referenceClass = property.type.referenceClass;
    info.defaultValue = FromLiteral(property.defaultValue.value_or(mof::Literal{}), info.type);
    return info;
}

std::unique_ptr<ClassInfo> MakeClass(const mof::Schema& schema, const mof::Class& cls) {
    auto info = std::make_unique<ClassInfo>();
    info->declaration = &cls;
    for (const auto& property : mof::AllProperties(schema, cls))
        info->properties.push_back(MakeProperty(schema, cls, property));
    info->isAssociation = mof::HasFlag(cls.qualifiers, "Association");
    return info;
}

}  // namespace

bool PropertyInfo::Accepts(CMPIType valueType) const {
    if (valueType == type) return true;
    return isEmbedded && valueType == static_cast<CMPIType>((type & CMPI_ARRAY) | CMPI_instance);
}

const PropertyInfo* ClassInfo::FindProperty(const std::string& name) const {
    return FindByName(properties, name);
}

const mof::Method* ClassInfo::FindMethod(const std::string& name) const {
    for (const ClassInfo* cls = this; cls; cls = cls->superClass)
        if (const auto* method = FindByName(cls->declaration->methods, name)) return method;
    return nullptr;
}

bool ClassInfo::IsA(const std::string& ancestor) const {
    for (const ClassInfo* cls = this; cls; cls = cls->superClass)
        if (mof::SameName(cls->Name(), ancestor)) return true;
    return false;
}

ClassRepository::ClassRepository(mof::Schema declarations) : schema(std::move(declarations)) {
    for (const mof::Class& cls : schema.classes) {
        auto info = MakeClass(schema, cls);
        if (const auto base = classes.find(mof::FoldedName(cls.superClass));
            base != classes.end()) {
            info->superClass = base->second.get();
            info->isAssociation = info->isAssociation || info->superClass->isAssociation;
        }
        classes.emplace(mof::FoldedName(cls.name), std::move(info));
    }
}

const ClassInfo* ClassRepository::Find(const std::string& name) const {
    const auto found = classes.find(mof::FoldedName(name));
    return found == classes.end() ? nullptr : found->second.get();
}

}  // namespace host
