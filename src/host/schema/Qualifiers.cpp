#include <host/Status.h>
#include <host/schema/FindByName.h>
#include <host/schema/Qualifiers.h>
#include <host/schema/TypedValue.h>
#include <mof/Names.h>

#include <algorithm>

namespace host {

namespace {

// The qualifiers that the class itself declares at the place, or null.
const std::vector<mof::Qualifier>* OwnQualifiers(const mof::Class& cls,
                                                 const QualifierPlace& place) {
    if (!place.property.empty()) {
        const auto* property = FindByName(cls.properties, place.property);
        return property ? &property->qualifiers : nullptr;
    }
    if (place.method.empty()) return &cls.qualifiers;
    const auto* method = FindByName(cls.methods, place.method);
    if (!method || place.parameter.empty()) return method ? &method->qualifiers : nullptr;
    const auto* parameter = FindByName(method->parameters, place.parameter);
    return parameter ? &parameter->qualifiers : nullptr;
}

bool IsRestricted(const mof::QualifierDeclaration* declaration) {
    return declaration &&
           std::any_of(declaration->flavors.begin(), declaration->flavors.end(),
                       [](const auto& flavor) { return mof::SameName(flavor, "Restricted"); });
}

}  // namespace

// A qualifier that stands without a value is a flag that is set.
Value QualifierValue(const mof::Qualifier& qualifier,
                     const mof::QualifierDeclaration* declaration) {
    const Value shown = FromLiteral(qualifier.value);
    const CMPIType type = declaration ? TypeOf(declaration->type) : shown.type;
    if (shown.IsNull() && (type == CMPI_boolean || type == CMPI_null)) return {CMPI_boolean, true};
    return FromLiteral(qualifier.value, type);
}

Value QualifierValue(const ClassRepository& classes, const std::string& className,
                     const QualifierPlace& place, const std::string& qualifier) {
    const ClassInfo* const cls = classes.Find(className);
    if (!cls) throw Failure(CMPI_RC_ERR_INVALID_CLASS, "There is no class '" + className + "'.");
    const auto* declaration = FindByName(classes.Schema().qualifiers, qualifier);
    for (const ClassInfo* level = cls; level; level = level->superClass) {
        if (const auto* qualifiers = OwnQualifiers(*level->declaration, place))
            if (const auto* found = mof::FindQualifier(*qualifiers, qualifier))
                return QualifierValue(*found, declaration);
        if (IsRestricted(declaration)) break;
    }
    throw Failure(CMPI_RC_ERR_NOT_FOUND,
                  "The class '" + cls->Name() + "' has no qualifier '" + qualifier + "' there.");
}

}  // namespace host
