// The enumeration of a computed association: every entry of one endpoint list paired with every
// entry of another.
//
//     const PairEnumeration enumeration("QUVSG_BMCI2C_UseOfLog_Provider");
//     GetDiagService();
//     GetDiagLog();
//     return enumeration.Deliver(handler, Role{services, &Class::Dependent},
//                                Role{logs, &Class::Antecedent});
#pragma once

#include <debug/Debug.h>
#include <framework/Enum_Instances_Handler.h>
#include <framework/Status.h>
#include <providers/EndpointList.h>
#include <providers/EnumerationTrace.h>

#include <cstddef>
#include <string_view>

// One end of an association: its endpoints, and the reference property that they go into. An
// endpoint that is not of the property's class gives a null reference.
template <class Endpoint, class Association, class Referenced>
struct Role {
    const EndpointList<Endpoint>& endpoints;
    Referenced* Association::*property;

    void Set(Association& association, std::size_t index) const {
        auto* endpoint = cimple::cast<Referenced>(endpoints[index]);
        cimple::ref(endpoint);
        association.*property = endpoint;
    }
};

template <class Endpoint, class Association, class Referenced>
Role(const EndpointList<Endpoint>&, Referenced* Association::*)
    -> Role<Endpoint, Association, Referenced>;

class PairEnumeration {
public:
    // Writes the opening trace line.
    explicit PairEnumeration(std::string_view traceName) : provider(traceName) {
        TraceEntry(provider);
    }

    // Delivers all pairs, or fails when either list is empty; writes the closing trace line.
    template <class Association, class Outer, class Inner>
    int Deliver(cimple::Enum_Instances_Handler<Association>* handler, const Outer& outer,
                const Inner& inner) const {
        if (outer.endpoints.Size() == 0 || inner.endpoints.Size() == 0) {
            TraceExit(provider, " FAIL");
            return cimple::ENUM_INSTANCES_FAILED;
        }
        for (std::size_t i = 0; i < outer.endpoints.Size(); ++i) {
            for (std::size_t j = 0; j < inner.endpoints.Size(); ++j) {
                auto* association = cimple::create<Association>();
                outer.Set(*association, i);
                inner.Set(*association, j);
                xprint(association);
                handler->handle(association);
            }
        }
        TraceExit(provider, " OK");
        return cimple::STATUS_OK;
    }

private:
    std::string_view provider;
};
