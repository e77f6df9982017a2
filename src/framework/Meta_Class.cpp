#include <framework/Meta_Class.h>
#include <strings.h>

#include <algorithm>

namespace cimple {

bool is_subclass(const Meta_Class* ancestor, const Meta_Class* descendant) {
    if (ancestor == nullptr) return false;
    while (descendant != nullptr && descendant != ancestor) descendant = descendant->super_class;
    return descendant != nullptr;
}

const Meta_Class* find_class(const Meta_Repository& repository, const char* name) {
    const auto* const end = repository.classes + repository.class_count;
    const auto* const found = std::find_if(repository.classes, end, [name](const Meta_Class* c) {
        return strcasecmp(c->name, name) == 0;
    });
    return found == end ? nullptr : *found;
}

const Meta_Feature* find_feature(const Meta_Class& meta_class, const char* name) {
    const Meta_Feature* const end = meta_class.features + meta_class.feature_count;
    const Meta_Feature* const found =
        std::find_if(meta_class.features, end,
                     [name](const Meta_Feature& f) { return strcasecmp(f.name, name) == 0; });
    return found == end ? nullptr : found;
}

const Meta_Class* find_method(const Meta_Class& meta_class, const char* name) {
    return find_class({meta_class.methods, meta_class.method_count}, name);
}

}  // namespace cimple
