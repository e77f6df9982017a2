// The enumeration of a computed association: every entry of one endpoint list paired with every
// entry of another.
//
//     const PairEnumeration enumeration("QUVSG_BMCI2C_UseOfLog_Provider");
//     GetDiagService();
//     GetDiagLog();
//     return enumeration.Deliver(handler, Role<CIM_ManagedSystemElement>(services,
//     &Class::Dependent),
//                                Role<CIM_Log>(logs, &Class::Antecedent));
#pragma once

#include <debug/Debug.h>
#include <framework/Enum_Instances_Handler.h>
#include <framework/Status.h>
#include <providers/EndpointList.h>
#include <providers/EnumerationTrace.h>

#include <cstdint>
#include <string_view>

// One end of an association: its endpoints, the reference property that they go into, and the class
// (Checked) that an endpoint must be of; another one gives a null reference.
template <class Checked, class Endpoint, class Member>
struct RoleOf {
    const EndpointList<Endpoint>& endpoints;
    Member member;

    template <class Association>
    void Set(Association& association, std::uint32_t index) const {
        auto* endpoint = cimple::cast<Checked>(endpoints[index]);
        cimple::ref(endpoint);
        association.*member = endpoint;
    }
};

template <class Checked, class Endpoint, class Member>
RoleOf<Checked, Endpoint, Member> Role(const EndpointList<Endpoint>& endpoints, Member member) {
    return {endpoints, member};
}

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
        for (std::uint32_t i = 0; i < outer.endpoints.Size(); ++i) {
            for (std::uint32_t j = 0; j < inner.endpoints.Size(); ++j) {
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
