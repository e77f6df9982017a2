#include "InstanceText.h"

#include <framework/visit.h>

namespace {

std::string Text(bool value) { return value ? "true" : "false"; }
std::string Text(const cimple::String& value) { return "\"" + std::string(value.c_str()) + "\""; }
std::string Text(const cimple::Datetime& value) { return value.to_string(); }

template <class T>
std::string Text(const T& value) {
    return std::to_string(value);
}

template <class T>
std::string Text(const cimple::Array<T>& values) {
    std::string text = "{";
    for (const auto& value : values) text += (text.size() > 1 ? ", " : "") + Text(value);
    return text + "}";
}

std::string ValueOf(const cimple::Instance& instance, const cimple::Meta_Feature& feature) {
    if (cimple::is_reference(feature)) {
        return cimple::reference_at(instance, feature)->meta_class->name;
    }
    return cimple::visit_property(instance, feature,
                                  [](const auto& property) { return Text(property.value); });
}

}  // namespace

std::vector<std::string> AssignedFeatures(const cimple::Instance& instance) {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < instance.meta_class->feature_count; ++i) {
        const cimple::Meta_Feature& feature = instance.meta_class->features[i];
        if (cimple::is_null_at(instance, feature)) continue;
        lines.push_back(std::string(feature.name) + " = " + ValueOf(instance, feature));
    }
    return lines;
}
