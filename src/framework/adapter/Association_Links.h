// The links of an instance, found by enumerating the association's own provider: the answer to
// association requests that the provider does not support.
#pragma once

#include <framework/Instance_Ptr.h>
#include <framework/adapter/Delivery.h>
#include <framework/adapter/Provider_State.h>

#include <vector>

namespace cimple {

// What a client restricts its request to; null and "" do not restrict.
struct Association_Filter {
    const char* associationClass = nullptr;
    const char* resultClass = nullptr;
    const char* role = nullptr;
    const char* resultRole = nullptr;
};

// True when the class is the named one or derives from it; no name stands for every class.
bool is_of_class(const Meta_Class* meta_class, const char* name);

class Association_Links {
public:
    // Enumerates the association's class, unless none of its references in that role can hold the
    // source. Throws Request_Error when the provider fails.
    Association_Links(Provider& provider, const Meta_Class& association,
                      const Instance& sourceInstance, const char* sourceRole);

    // Each once. All of them throw what the delivery throws.
    void deliver_links(const Delivery& delivery) const;
    void deliver_other_ends(const Delivery& delivery, const Association_Filter& filter) const;

private:
    bool holds_source(const Instance& link, const Meta_Feature& end) const;
    bool is_link_of_source(const Instance& link) const;

    const Instance& source;
    const char* const role;
    std::vector<Instance_Ptr> links;
};

}  // namespace cimple
