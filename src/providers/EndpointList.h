// One side of an association: the instances that stand at one end of its pairs.
//
// A list is filled in one of three ways: looked up through the CIM server (LookUp), built from the
// test registry (AddServices), or built by its provider (Add).
#pragma once

#include <base/Names.h>
#include <framework/Instance.h>
#include <framework/cimom.h>
#include <providers/ParkedInstances.h>

#include <cstddef>
#include <vector>

inline constexpr const char* g_szCIMNameSpace = base::kNameSpace;

// Replaces the entries by what the CIM server enumerates of a class. An instance of another class
// gives a null entry; a failed enumeration leaves the list empty.
void LookUpEndpoints(const cimple::Meta_Class& endpointClass,
                     std::vector<cimple::Instance*>& entries);

template <class Endpoint>
class EndpointList {
public:
    EndpointList() = default;
    EndpointList(const EndpointList&) = delete;
    EndpointList& operator=(const EndpointList&) = delete;
    ~EndpointList() { Clear(); }

    // The dropped instances stay allocated (ParkedInstances.h).
    void Clear() {
        for (cimple::Instance* entry : entries) ParkInstance(entry);
        entries.clear();
    }

    void LookUp() {
        Clear();
        LookUpEndpoints(Endpoint::static_meta_class, entries);
    }

    // Takes over the caller's count of the instance.
    void Add(Endpoint* instance) { entries.push_back(instance); }

    std::size_t Size() const { return entries.size(); }

    // The entry, owned by the list; null when the CIM server gave an instance of another class.
    cimple::Instance* operator[](std::size_t index) const { return entries[index]; }

private:
    std::vector<cimple::Instance*> entries;
};
