#include <framework/adapter/Association_Links.h>
#include <framework/adapter/provider_status.h>
#include <framework/adapter/same_object.h>
#include <framework/visit.h>
#include <strings.h>

#include <algorithm>
#include <exception>
#include <span>

namespace cimple {

namespace {

bool admits(const char* filter, const char* name) {
    return filter == nullptr || *filter == '\0' || strcasecmp(filter, name) == 0;
}

bool can_hold(const Meta_Class& association, const Meta_Class& source, const char* role) {
    const auto all = features_of(association);
    return std::any_of(all.begin(), all.end(), [&](const Meta_Feature& end) {
        return is_reference(end) && admits(role, end.name) &&
               is_subclass(end.reference_class, &source);
    });
}

// Takes what a provider enumerates. Nothing is thrown through the provider.
struct Taken {
    std::vector<Instance_Ptr> instances;
    std::exception_ptr failure;

    static void take(Instance* instance, int /*status*/, void* taken) noexcept {
        auto& self = *static_cast<Taken*>(taken);
        Instance_Ptr owned(instance);
        if (owned == nullptr || self.failure != nullptr) return;
        try {
            self.instances.push_back(std::move(owned));
        } catch (...) {
            self.failure = std::current_exception();
        }
    }
};

std::vector<Instance_Ptr> enumerate(Provider& provider, const Meta_Class& association,
                                    const String& nameSpace) {
    const Instance_Ptr model(create(&association, false));
    model->name_space = nameSpace;
    Taken taken;
    const int status = provider.call(OPERATION_ENUM_INSTANCES, model.get(), &Taken::take, &taken);
    if (taken.failure != nullptr) std::rethrow_exception(taken.failure);
    check_status(status);
    return std::move(taken.instances);
}

// Adds an object that is not there yet.
void add_new(std::vector<const Instance*>& all, const Instance* instance) {
    if (std::none_of(all.begin(), all.end(), [&](const Instance* present) {
            return present == instance || is_same_object(*present, *instance);
        })) {
        all.push_back(instance);
    }
}

void deliver_all(const Delivery& delivery, const std::vector<const Instance*>& instances) {
    for (const Instance* const instance : instances) delivery.put(*instance);
}

}  // namespace

bool is_of_class(const Meta_Class* meta_class, const char* name) {
    if (name == nullptr || *name == '\0') return true;
    while (meta_class != nullptr && strcasecmp(meta_class->name, name) != 0) {
        meta_class = meta_class->super_class;
    }
    return meta_class != nullptr;
}

Association_Links::Association_Links(Provider& provider, const Meta_Class& association,
                                     const Instance& sourceInstance, const char* sourceRole)
    : source(sourceInstance), role(sourceRole) {
    if (!can_hold(association, *source.meta_class, role)) return;
    links = enumerate(provider, association, source.name_space);
    std::erase_if(links, [&](const Instance_Ptr& link) { return !is_link_of_source(*link); });
}

bool Association_Links::holds_source(const Instance& link, const Meta_Feature& end) const {
    if (!is_reference(end) || !admits(role, end.name)) return false;
    const Instance* const target = reference_at(link, end);
    return target != nullptr && is_same_object(*target, source);
}

bool Association_Links::is_link_of_source(const Instance& link) const {
    const auto all = features_of(*link.meta_class);
    return std::any_of(all.begin(), all.end(),
                       [&](const Meta_Feature& end) { return holds_source(link, end); });
}

void Association_Links::deliver_links(const Delivery& delivery) const {
    std::vector<const Instance*> distinct;
    for (const Instance_Ptr& link : links) add_new(distinct, link.get());
    deliver_all(delivery, distinct);
}

void Association_Links::deliver_other_ends(const Delivery& delivery,
                                           const Association_Filter& filter) const {
    std::vector<const Instance*> distinct;
    for (const Instance_Ptr& link : links) {
        const auto all = features_of(*link->meta_class);
        for (const Meta_Feature& end : all) {
            if (!holds_source(*link, end)) continue;
            for (const Meta_Feature& other : all) {
                if (&other == &end || !is_reference(other) ||
                    !admits(filter.resultRole, other.name))
                    continue;
                const Instance* const target = reference_at(*link, other);
                if (target != nullptr && is_of_class(target->meta_class, filter.resultClass))
                    add_new(distinct, target);
            }
        }
    }
    deliver_all(delivery, distinct);
}

}  // namespace cimple
