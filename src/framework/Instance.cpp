#include <framework/Instance.h>
#include <framework/Instance_Ptr.h>
#include <framework/visit.h>

#include <memory>
#include <new>

namespace cimple {

namespace {

constinit std::atomic<std::uint64_t> instanceCount = 0;

struct Free {
    void operator()(void* memory) const { ::operator delete(memory); }
};

void free_instance(Instance* instance) {
    const Meta_Class* metaClass = instance->meta_class;
    for (const Meta_Feature& feature : features_of(*instance->meta_class)) {
        if (is_reference(feature)) unref(reference_at(*instance, feature));
    }
    metaClass->destruct(instance);
    ::operator delete(instance);
    instanceCount.fetch_sub(1, std::memory_order_relaxed);
}

void copy_feature(Instance& target, const Instance& source, const Meta_Feature& feature) {
    if (is_reference(feature)) {
        const Instance* const endpoint = reference_at(source, feature);
        set_reference_at(target, feature, endpoint == nullptr ? nullptr : clone(endpoint));
        return;
    }
    visit_property(target, feature, [&]<class P>(P& property) {
        property = *static_cast<const P*>(member_at(source, feature));
    });
}

}  // namespace

Instance* create(const Meta_Class* meta_class, bool /*defaults*/) {
    std::unique_ptr<void, Free> memory(::operator new(meta_class->size));
    Instance* const instance = meta_class->construct(memory.get());
    memory.release();
    instance->meta_class = meta_class;
    instanceCount.fetch_add(1, std::memory_order_relaxed);
    return instance;
}

Instance* clone(const Instance* instance) {
    Instance_Ptr copy(create(instance->meta_class, false));
    copy->name_space = instance->name_space;
    for (const Meta_Feature& feature : features_of(*instance->meta_class)) {
        copy_feature(*copy, *instance, feature);
    }
    return copy.release();
}

void destroy(Instance* instance) { unref(instance); }

void ref(const Instance* instance) {
    if (instance == nullptr) return;
    const_cast<Instance*>(instance)->count.fetch_add(1, std::memory_order_relaxed);
}

void unref(const Instance* instance) {
    if (instance == nullptr) return;
    auto* const counted = const_cast<Instance*>(instance);
    if (counted->count.fetch_sub(1, std::memory_order_acq_rel) == 1) free_instance(counted);
}

std::uint64_t instance_count() { return instanceCount.load(std::memory_order_relaxed); }

}  // namespace cimple
