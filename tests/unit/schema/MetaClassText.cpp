#include "MetaClassText.h"

#include <array>

namespace {

constexpr std::array kTypeNames = {"boolean", "uint8",  "sint8",  "uint16",  "sint16",
                                   "uint32",  "sint32", "uint64", "sint64",  "real32",
                                   "real64",  "char16", "string", "datetime"};

bool Has(const cimple::Meta_Feature& feature, std::uint32_t flag) {
    return (feature.flags & flag) != 0;
}

std::string TypeText(const cimple::Meta_Feature& feature) {
    if (Has(feature, cimple::FEATURE_REFERENCE)) {
        return std::string(feature.reference_class->name) + " REF";
    }
    const std::string name = kTypeNames.at(static_cast<std::size_t>(feature.type));
    return Has(feature, cimple::FEATURE_ARRAY) ? name + "[]" : name;
}

std::string ParameterText(const cimple::Meta_Feature& parameter) {
    const bool isIn = Has(parameter, cimple::FEATURE_IN);
    const bool isOut = Has(parameter, cimple::FEATURE_OUT);
    const std::string direction = isIn && isOut ? "in/out" : isIn ? "in" : isOut ? "out" : "none";
    return direction + " " + TypeText(parameter) + " " + parameter.name;
}

std::string MethodText(const cimple::Meta_Class& method) {
    const cimple::Meta_Feature& returnValue = method.features[method.feature_count - 1];
    std::string text = TypeText(returnValue) + " " + method.name + "(";
    for (std::size_t i = 0; i + 1 < method.feature_count; ++i) {
        text += (i == 0 ? "" : ", ") + ParameterText(method.features[i]);
    }
    return text + ")";
}

}  // namespace

std::string FlagsText(const cimple::Meta_Class& metaClass) {
    const bool isAssociation = (metaClass.flags & cimple::CLASS_ASSOCIATION) != 0;
    const bool isAbstract = (metaClass.flags & cimple::CLASS_ABSTRACT) != 0;
    const char* separator = isAssociation && isAbstract ? " " : "";
    return std::string(isAssociation ? "(association)" : "") + separator +
           (isAbstract ? "(abstract)" : "");
}

std::vector<std::string> PropertyTexts(const cimple::Meta_Class& metaClass) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < metaClass.feature_count; ++i) {
        const cimple::Meta_Feature& feature = metaClass.features[i];
        const std::string key = Has(feature, cimple::FEATURE_KEY) ? " key" : "";
        texts.push_back(TypeText(feature) + " " + feature.name + key);
    }
    return texts;
}

std::vector<std::string> MethodTexts(const cimple::Meta_Class& metaClass) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < metaClass.method_count; ++i) {
        texts.push_back(MethodText(*metaClass.methods[i]));
    }
    return texts;
}
