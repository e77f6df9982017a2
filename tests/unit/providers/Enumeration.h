// Enumerates a provider as the framework does and keeps what it delivers.
#pragma once

#include <framework/Enum_Instances_Handler.h>
#include <framework/Instance_Ptr.h>

#include <vector>

#include "InstanceText.h"

struct Enumeration {
    int status = -1;
    std::vector<cimple::Instance_Ptr> instances;

    // What the only instance has; empty when there is not exactly one.
    std::vector<std::string> TheOne() const {
        return instances.size() == 1 ? AssignedFeatures(*instances[0]) : std::vector<std::string>();
    }
};

template <class Class, class Provider>
Enumeration Enumerate(Provider& provider, const Class* model = nullptr) {
    Enumeration result;
    cimple::Enum_Instances_Handler<Class> handler(
        [](cimple::Instance* instance, int /*status*/, void* data) {
            static_cast<Enumeration*>(data)->instances.emplace_back(instance);
        },
        &result);
    result.status = provider.enum_instances(model, &handler);
    return result;
}
