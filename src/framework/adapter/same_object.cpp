#include <framework/adapter/same_object.h>
#include <framework/visit.h>
#include <strings.h>

#include <cstring>

namespace cimple {

namespace {

template <class T>
bool is_empty(const Property<T>& key) {
    if constexpr (std::is_same_v<T, String>) return key.null != 0 || key.value.empty();
    return key.null != 0;
}

template <class T>
bool is_same_value(const T& a, const T& b) {
    if constexpr (std::is_arithmetic_v<T>) return a == b;
    if constexpr (std::is_same_v<T, String> || std::is_same_v<T, Datetime>)
        return std::strcmp(a.c_str(), b.c_str()) == 0;
    return false;  // arrays cannot be keys
}

enum class Match { empty, same, different };

Match match_references(const Instance* a, const Instance* b) {
    if (a == nullptr && b == nullptr) return Match::empty;
    const bool isSame = a != nullptr && b != nullptr && is_same_object(*a, *b);
    return isSame ? Match::same : Match::different;
}

// The instances are of the same class.
Match match_keys(const Instance& a, const Instance& b, const Meta_Feature& feature) {
    if (is_reference(feature))
        return match_references(reference_at(a, feature), reference_at(b, feature));
    return visit_property(a, feature, [&](const auto& mine) {
        const auto& theirs = *static_cast<decltype(&mine)>(member_at(b, feature));
        if (is_empty(mine) || is_empty(theirs))
            return is_empty(mine) && is_empty(theirs) ? Match::empty : Match::different;
        return is_same_value(mine.value, theirs.value) ? Match::same : Match::different;
    });
}

bool are_same_name_spaces(const String& a, const String& b) {
    return a.empty() || b.empty() || strcasecmp(a.c_str(), b.c_str()) == 0;
}

}  // namespace

bool is_same_object(const Instance& a, const Instance& b) {
    if (a.meta_class != b.meta_class || !are_same_name_spaces(a.name_space, b.name_space)) {
        return false;
    }
    bool hasKeys = false;
    for (const Meta_Feature& feature : features_of(*a.meta_class)) {
        if ((feature.flags & FEATURE_KEY) == 0) continue;
        const Match match = match_keys(a, b, feature);
        if (match == Match::different) return false;
        hasKeys = hasKeys || match == Match::same;
    }
    return hasKeys;
}

}  // namespace cimple
