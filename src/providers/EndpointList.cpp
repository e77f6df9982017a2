#include <debug/Debug.h>
#include <framework/Instance_Ptr.h>
#include <providers/EndpointList.h>

namespace {

// A copy of the instance when it is of the endpoint class or of a subclass, else null.
cimple::Instance* CloneEndpoint(const cimple::Meta_Class& endpointClass,
                                const cimple::Instance& instance) {
    if (!cimple::is_subclass(&endpointClass, instance.meta_class)) return nullptr;
    return cimple::clone(&instance);
}

}  // namespace

void LookUpEndpoints(const cimple::Meta_Class& endpointClass,
                     std::vector<cimple::Instance*>& entries) {
    cimple::Instance_Enumerator enumerator;
    const cimple::Instance_Ptr model(cimple::create(&endpointClass, false));
    if (cimple::cimom::enum_instances(g_szCIMNameSpace, model.get(), enumerator) != 0) return;
    for (; enumerator; enumerator++) {
        const cimple::Instance_Ptr current(enumerator());
        if (current == nullptr) break;
        entries.push_back(CloneEndpoint(endpointClass, *current));
        if (entries.back() != nullptr) xprint(entries.back());
    }
}
