#include <host/objects/Objects.h>
#include <host/requests/AssociationRequests.h>
#include <host/requests/PathMatch.h>
#include <mof/Names.h>

#include <algorithm>
#include <map>
#include <utility>

namespace host {

namespace {

// A text of the query as a provider gets it: null when it does not restrict.
const char* Filter(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

template <class Object>
void AddAllNew(std::vector<Object>& all, std::vector<Object> part) {
    for (Object& object : part) AddNew(all, std::move(object));
}

// Finds objects by their paths; enumerates each class once.
class ObjectFinder {
public:
    ObjectFinder(InstanceRequests& requests, const ContextEntries& entries)
        : instances(requests), context(entries) {}

    // The object, or null.
    const Instance* Find(const ObjectPath& path, const std::string& nameSpace) {
        const std::string& place = path.nameSpace.empty() ? nameSpace : path.nameSpace;
        const std::string key = mof::FoldedName(place + ":" + path.className);
        auto known = enumerated.find(key);
        if (known == enumerated.end())
            known = enumerated
                        .emplace(key,
                                 instances.Enumerate(context, {place, path.className, {}}, nullptr))
                        .first;
        const auto& all = known->second;
        const auto found = std::find_if(all.begin(), all.end(), [&](const Instance& candidate) {
            return SameObject(candidate.path, path);
        });
        return found == all.end() ? nullptr : &*found;
    }

private:
    InstanceRequests& instances;
    const ContextEntries& context;
    std::map<std::string, std::vector<Instance>> enumerated;  // by folded namespace and class
};

ProviderCall CallOf(const Router& router, const ContextEntries& context, const Target& target,
                    CMPIType accepted) {
    return {router.Classes(), context, target.registration->provider, accepted};
}

}  // namespace

bool AssociationRequests::Answers(const Target& target, const ProviderCall& call,
                                  const AssociationQuery& query, const Ask& ask) const {
    if (!target.registration->HasType(kAssociationType)) return false;
    auto& mi = providers.Get<CMPIAssociationMI>(target.registration->provider);
    try {
        call.Run([&] { return ask(mi, call, Make<CMPIObjectPath>({query.source}), target); });
        return true;
    } catch (const Failure& failure) {
        if (failure.status.code != CMPI_RC_ERR_NOT_SUPPORTED) throw;
        return false;
    }
}

std::vector<Instance> AssociationRequests::Links(const ContextEntries& context,
                                                 const Target& target,
                                                 const AssociationQuery& query) const {
    if (!target.registration->HasType(kInstanceType))
        throw Failure(CMPI_RC_ERR_NOT_SUPPORTED, "The associations of the class '" +
                                                     target.cls->Name() +
                                                     "' can be neither asked for nor enumerated.");
    std::vector<Instance> links;
    for (Instance& link : instances.EnumerateOne(context, target, nullptr))
        if (Holds(link, query)) AddNew(links, std::move(link));
    return links;
}

std::vector<ObjectPath> AssociationRequests::AssociatorNames(const ContextEntries& context,
                                                             const AssociationQuery& query) {
    const auto ask = [&](CMPIAssociationMI& mi, const ProviderCall& call, CMPIObjectPath* source,
                         const Target& target) {
        return Implemented(mi.ft->associatorNames)(
            &mi, call.Context(), call.Result(), source, target.path.className.c_str(),
            Filter(query.resultClass), Filter(query.role), Filter(query.resultRole));
    };
    std::vector<ObjectPath> all;
    AskEach(AssociationTargets(router, query), sink, [&](const Target& target) {
        const ProviderCall call = CallOf(router, context, target, CMPI_ref);
        if (Answers(target, call, query, ask))
            return AddAllNew(all, call.Paths(query.source.nameSpace));
        for (const Instance& link : Links(context, target, query))
            AddAllNew(all, OtherEnds(router.Classes(), link, query));
    });
    return all;
}

std::vector<Instance> AssociationRequests::Associators(const ContextEntries& context,
                                                       const AssociationQuery& query,
                                                       PropertyList properties) {
    NameList names(properties);
    const auto ask = [&](CMPIAssociationMI& mi, const ProviderCall& call, CMPIObjectPath* source,
                         const Target& target) {
        return Implemented(mi.ft->associators)(
            &mi, call.Context(), call.Result(), source, target.path.className.c_str(),
            Filter(query.resultClass), Filter(query.role), Filter(query.resultRole), names.Get());
    };
    ObjectFinder finder(instances, context);
    std::vector<Instance> all;
    AskEach(AssociationTargets(router, query), sink, [&](const Target& target) {
        const ProviderCall call = CallOf(router, context, target, CMPI_instance);
        if (Answers(target, call, query, ask))
            return AddAllNew(all, call.Instances(query.source.nameSpace));
        std::vector<Instance> ends;
        for (const Instance& link : Links(context, target, query))
            for (const ObjectPath& end : OtherEnds(router.Classes(), link, query))
                if (const Instance* const found = finder.Find(end, query.source.nameSpace))
                    ends.push_back(*found);
        AddAllNew(all, std::move(ends));
    });
    KeepListed(all, properties);
    return all;
}

std::vector<Instance> AssociationRequests::References(const ContextEntries& context,
                                                      const AssociationQuery& query,
                                                      PropertyList properties) {
    NameList names(properties);
    const auto ask = [&](CMPIAssociationMI& mi, const ProviderCall& call, CMPIObjectPath* source,
                         const Target& target) {
        return Implemented(mi.ft->references)(&mi, call.Context(), call.Result(), source,
                                              target.path.className.c_str(), Filter(query.role),
                                              names.Get());
    };
    std::vector<Instance> all;
    AskEach(AssociationTargets(router, query), sink, [&](const Target& target) {
        const ProviderCall call = CallOf(router, context, target, CMPI_instance);
        AddAllNew(all, Answers(target, call, query, ask) ? call.Instances(query.source.nameSpace)
                                                         : Links(context, target, query));
    });
    KeepListed(all, properties);
    return all;
}

std::vector<ObjectPath> AssociationRequests::ReferenceNames(const ContextEntries& context,
                                                            const AssociationQuery& query) {
    const auto ask = [&](CMPIAssociationMI& mi, const ProviderCall& call, CMPIObjectPath* source,
                         const Target& target) {
        return Implemented(mi.ft->referenceNames)(&mi, call.Context(), call.Result(), source,
                                                  target.path.className.c_str(),
                                                  Filter(query.role));
    };
    std::vector<ObjectPath> all;
    AskEach(AssociationTargets(router, query), sink, [&](const Target& target) {
        const ProviderCall call = CallOf(router, context, target, CMPI_ref);
        if (Answers(target, call, query, ask))
            return AddAllNew(all, call.Paths(query.source.nameSpace));
        for (const Instance& link : Links(context, target, query)) AddNew(all, link.path);
    });
    return all;
}

}  // namespace host
