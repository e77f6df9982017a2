// Reaches the members of an instance through its class description.
#pragma once

#include <framework/Array.h>
#include <framework/Instance.h>
#include <framework/Property.h>
#include <framework/types.h>

#include <cstring>
#include <span>
#include <type_traits>
#include <utility>

namespace cimple {

inline std::span<const Meta_Feature> features_of(const Meta_Class& meta_class) {
    return {meta_class.features, meta_class.feature_count};
}

inline bool is_reference(const Meta_Feature& feature) {
    return (feature.flags & FEATURE_REFERENCE) != 0;
}

inline void* member_at(Instance& instance, const Meta_Feature& feature) {
    return reinterpret_cast<char*>(&instance) + feature.offset;
}
inline const void* member_at(const Instance& instance, const Meta_Feature& feature) {
    return reinterpret_cast<const char*>(&instance) + feature.offset;
}

// The instance that a reference points to, or null. No count is taken. The member is a pointer to
// a derived class; copying its bytes reads it whatever that class is.
inline Instance* reference_at(const Instance& instance, const Meta_Feature& feature) {
    Instance* target;
    std::memcpy(&target, member_at(instance, feature), sizeof target);
    return target;
}

// Sets a reference to the target, whose count passes to the instance; the former target's count is
// dropped.
inline void set_reference_at(Instance& instance, const Meta_Feature& feature, Instance* target) {
    unref(reference_at(instance, feature));
    std::memcpy(member_at(instance, feature), &target, sizeof target);
}

// Calls f with the member as a Property<T>& or Property<Array<T>>&, which is const when the
// instance is; returns what f returns. Not for references.
template <class Instance_Type, class F>
decltype(auto) visit_property(Instance_Type& instance, const Meta_Feature& feature, F&& f) {
    return with_type(feature.type, [&]<class T>() -> decltype(auto) {
        using Scalar = Property<T>;
        using List = Property<Array<T>>;
        constexpr bool isConst = std::is_const_v<Instance_Type>;
        if ((feature.flags & FEATURE_ARRAY) != 0) {
            using Member = std::conditional_t<isConst, const List, List>;
            return f(*static_cast<Member*>(member_at(instance, feature)));
        }
        using Member = std::conditional_t<isConst, const Scalar, Scalar>;
        return f(*static_cast<Member*>(member_at(instance, feature)));
    });
}

// True when a property or a reference has no value.
inline bool is_null_at(const Instance& instance, const Meta_Feature& feature) {
    if (is_reference(feature)) return reference_at(instance, feature) == nullptr;
    return visit_property(instance, feature,
                          [](const auto& property) { return property.null != 0; });
}

}  // namespace cimple
