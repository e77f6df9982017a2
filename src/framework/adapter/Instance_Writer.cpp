#include <framework/adapter/Instance_Writer.h>
#include <framework/adapter/Value_Writer.h>
#include <framework/adapter/objects.h>
#include <framework/visit.h>
#include <strings.h>

#include <utility>
#include <vector>

namespace cimple {

namespace {

bool is_key(const Meta_Feature& feature) { return (feature.flags & FEATURE_KEY) != 0; }

bool is_wanted(const Meta_Feature& feature, Property_List properties) {
    if (properties == nullptr || is_key(feature)) return true;
    while (*properties != nullptr && strcasecmp(*properties, feature.name) != 0) ++properties;
    return *properties != nullptr;
}

// Passes the client's property filter to the server, so that it adds no default values of other
// properties. Servers without filters ignore it.
void set_filter(const CMPIInstance* target, const Instance& instance, Property_List properties) {
    if (properties == nullptr || target->ft->setPropertyFilter == nullptr) return;
    std::vector<const char*> keys;
    for (const Meta_Feature& feature : features_of(*instance.meta_class)) {
        if (is_key(feature)) keys.push_back(feature.name);
    }
    keys.push_back(nullptr);
    target->ft->setPropertyFilter(target, properties, keys.data());
}

}  // namespace

Instance_Writer::Instance_Writer(const CMPIBroker& serverBroker, std::string requestNameSpace)
    : broker(serverBroker), nameSpace(std::move(requestNameSpace)) {}

CMPIObjectPath* Instance_Writer::path_of(const Instance& instance) const {
    const char* const itsNameSpace =
        instance.name_space.empty() ? nameSpace.c_str() : instance.name_space.c_str();
    CMPIObjectPath* const path = new_object_path(broker, itsNameSpace, instance.meta_class->name);
    for (const Meta_Feature& feature : features_of(*instance.meta_class)) {
        if (!is_key(feature) || is_null_at(instance, feature)) continue;
        const CMPIValue value = value_of(instance, feature);
        check_server(path->ft->addKey(path, feature.name, &value, cmpi_type(feature)),
                     "take an object path's key");
    }
    return path;
}

CMPIInstance* Instance_Writer::instance_of(const Instance& instance,
                                           Property_List properties) const {
    CMPIInstance* const target = new_instance(broker, path_of(instance));
    set_filter(target, instance, properties);
    for (const Meta_Feature& feature : features_of(*instance.meta_class)) {
        if (!is_wanted(feature, properties)) continue;
        const bool isNull = is_null_at(instance, feature);
        const CMPIValue value = isNull ? CMPIValue{} : value_of(instance, feature);
        // A server whose schema lacks the property refuses it; the others still count.
        target->ft->setProperty(target, feature.name, isNull ? nullptr : &value,
                                cmpi_type(feature));
    }
    return target;
}

CMPIValue Instance_Writer::value_of(const Instance& instance, const Meta_Feature& feature) const {
    if (is_reference(feature)) {
        CMPIValue value{};
        value.ref = path_of(*reference_at(instance, feature));
        return value;
    }
    return visit_property(instance, feature,
                          [this](const auto& property) { return to_cmpi(broker, property.value); });
}

}  // namespace cimple
