#include "MofClassText.h"

#include <mof/DataTypes.h>

namespace {

std::string ParameterText(const mof::Parameter& parameter) {
    const char* const in = mof::IsIn(parameter) ? "in" : "";
    const char* const both = mof::IsIn(parameter) && mof::IsOut(parameter) ? "/" : "";
    const char* const out = mof::IsOut(parameter) ? "out" : "";
    return std::string(in) + both + out + " " + mof::ToText(parameter.type) + " " + parameter.name;
}

std::string MethodText(const mof::Method& method) {
    std::string text = mof::ToText(method.returnType) + " " + method.name + "(";
    const char* separator = "";
    for (const mof::Parameter& parameter : method.parameters) {
        text += separator + ParameterText(parameter);
        separator = ", ";
    }
    return text + ")";
}

}  // namespace

std::string FlagsText(const mof::Schema& schema, const mof::Class& cls) {
    const std::string association = mof::IsAssociation(schema, cls) ? "(association)" : "";
    const std::string abstract = mof::HasFlag(cls.qualifiers, "Abstract") ? "(abstract)" : "";
    return association + (association.empty() || abstract.empty() ? "" : " ") + abstract;
}

std::vector<std::string> PropertyTexts(const mof::Schema& schema, const mof::Class& cls) {
    std::vector<std::string> texts;
    for (const auto& property : mof::AllProperties(schema, cls)) {
        const std::string& name = property.member->name;
        texts.push_back(mof::ToText(property.member->type) + " " + name +
                        (mof::IsKey(schema, cls, name) ? " key" : ""));
    }
    return texts;
}

std::vector<std::string> MethodTexts(const mof::Schema& schema, const mof::Class& cls) {
    std::vector<std::string> texts;
    for (const auto& method : mof::AllMethods(schema, cls)) {
        texts.push_back(MethodText(*method.member));
    }
    return texts;
}
