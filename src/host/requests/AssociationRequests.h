// Requests for associated objects and for the associations that refer to an object.
//
// Each association class that can answer is asked in turn. Its provider's association interface
// comes first; when it has none, or answers "not supported", the host enumerates the class and
// picks the links of the source. All requests throw Failure.
#pragma once

#include <host/requests/AssociationQuery.h>
#include <host/requests/InstanceRequests.h>

#include <functional>
#include <vector>

namespace host {

class AssociationRequests {
public:
    AssociationRequests(const Router& requestRouter, ProviderTable& table,
                        InstanceRequests& instanceRequests, const MessageSink& messageSink)
        : router(requestRouter), providers(table), instances(instanceRequests), sink(messageSink) {}

    // The objects at the other ends of the source's links. Derived ones are found by enumerating
    // their class; an end that does not exist there is left out.
    std::vector<Instance> Associators(const ContextEntries& context, const AssociationQuery& query,
                                      PropertyList properties);
    std::vector<ObjectPath> AssociatorNames(const ContextEntries& context,
                                            const AssociationQuery& query);

    // The links of the source; the query's association class and role count.
    std::vector<Instance> References(const ContextEntries& context, const AssociationQuery& query,
                                     PropertyList properties);
    std::vector<ObjectPath> ReferenceNames(const ContextEntries& context,
                                           const AssociationQuery& query);

private:
    // A call of a provider's association interface.
    using Ask = std::function<CMPIStatus(CMPIAssociationMI&, const ProviderCall&, CMPIObjectPath*,
                                         const Target&)>;

    // Makes the call; false when the provider has no answer of its own. Throws Failure.
    bool Answers(const Target& target, const ProviderCall& call, const AssociationQuery& query,
                 const Ask& ask) const;

    // The links of the source, each once, found by enumerating the association class.
    std::vector<Instance> Links(const ContextEntries& context, const Target& target,
                                const AssociationQuery& query) const;

    const Router& router;
    ProviderTable& providers;
    InstanceRequests& instances;
    const MessageSink& sink;
};

}  // namespace host
