// One side of an association: the instances that stand at one end of its pairs.
//
// A list is looked up through the CIM server (LookUp) or built by its provider (Add).
#pragma once

#include <base/Names.h>
#include <framework/Instance_Ptr.h>
#include <framework/cimom.h>

#include <cstddef>
#include <utility>
#include <vector>

inline constexpr const char* g_szCIMNameSpace = base::kNameSpace;

// What the CIM server enumerates of a class. An instance of another class gives a null entry; a
// failed enumeration gives none.
std::vector<cimple::Instance_Ptr> LookUpEndpoints(const cimple::Meta_Class& endpointClass);

// An association that was delivered may still be in use when its provider refills its lists, so
// dropped endpoints stay allocated: parked in one process-wide list, where leak checkers see them
// and their growth can be measured. Null is ignored.
void ParkInstance(cimple::Instance_Ptr instance);

// The number of instances parked since the process began.
std::size_t ParkedInstanceCount();

template <class Endpoint>
class EndpointList {
public:
    EndpointList() = default;
    EndpointList(const EndpointList&) = delete;
    EndpointList& operator=(const EndpointList&) = delete;
    ~EndpointList() { Clear(); }

    // The dropped instances stay allocated.
    void Clear() {
        for (cimple::Instance_Ptr& entry : entries) ParkInstance(std::move(entry));
        entries.clear();
    }

    void LookUp() {
        Clear();
        entries = LookUpEndpoints(Endpoint::static_meta_class);
    }

    // Takes over the caller's count of the instance.
    void Add(Endpoint* instance) { entries.emplace_back(instance); }

    std::size_t Size() const { return entries.size(); }

    // The entry, owned by the list; null when the CIM server gave an instance of another class.
    cimple::Instance* operator[](std::size_t index) const { return entries[index].get(); }

private:
    std::vector<cimple::Instance_Ptr> entries;
};
