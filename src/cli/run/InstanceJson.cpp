#include <cli/run/InstanceJson.h>
#include <framework/visit.h>

namespace cli {

namespace {

template <class Plain>
Json ElementJson(const Plain& plain) {
    return plain;
}

Json ElementJson(const cimple::String& text) { return text.c_str(); }

Json ElementJson(const cimple::Datetime& time) { return time.c_str(); }

template <class T>
Json ValueJson(const T& value) {
    return ElementJson(value);
}

template <class T>
Json ValueJson(const cimple::Array<T>& elements) {
    Json array = Json::array();
    for (const T& element : elements) array.push_back(ElementJson(element));
    return array;
}

}  // namespace

Json ToJson(const cimple::Instance& instance) {
    Json object = Json::object();
    for (const cimple::Meta_Feature& feature : cimple::features_of(*instance.meta_class)) {
        if (cimple::is_reference(feature)) continue;
        object[feature.name] =
            cimple::visit_property(instance, feature, [](const auto& property) -> Json {
                return property.null != 0 ? Json() : ValueJson(property.value);
            });
    }
    return object;
}

}  // namespace cli
