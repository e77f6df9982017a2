// Requests for instances, answered by the instance interfaces of providers. All of them throw
// Failure.
#pragma once

#include <host/requests/ProviderCall.h>
#include <host/requests/ProviderTable.h>
#include <host/requests/Router.h>

#include <vector>

namespace host {

class InstanceRequests {
public:
    InstanceRequests(const Router& requestRouter, ProviderTable& table,
                     const MessageSink& messageSink)
        : router(requestRouter), providers(table), sink(messageSink) {}

    // The instances of the class and of the registered classes that derive from it.
    std::vector<Instance> Enumerate(const ContextEntries& context, const ObjectPath& classPath,
                                    PropertyList properties);
    std::vector<ObjectPath> EnumerateNames(const ContextEntries& context,
                                           const ObjectPath& classPath);

    // The instances that the target's own provider enumerates.
    std::vector<Instance> EnumerateOne(const ContextEntries& context, const Target& target,
                                       PropertyList properties);

    // The instance of that path; where the provider does not support the operation, it is looked
    // for among those that the provider enumerates.
    Instance Get(const ContextEntries& context, const ObjectPath& path, PropertyList properties);

private:
    std::vector<Instance> GotFromProvider(const ContextEntries& context, const Target& target,
                                          PropertyList properties);
    std::vector<Instance> GotByEnumeration(const ContextEntries& context, const Target& target,
                                           PropertyList properties);
    ProviderCall Call(const ContextEntries& context, const Target& target, CMPIType accepted) const;

    const Router& router;
    ProviderTable& providers;
    const MessageSink& sink;
};

// The answer to a request for an instance that does not exist.
Status NoSuchInstance(const ObjectPath& path);

// Takes away the properties that are not in the list.
void KeepListed(std::vector<Instance>& instances, PropertyList properties);

}  // namespace host
