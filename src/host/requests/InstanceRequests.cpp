#include <host/objects/Objects.h>
#include <host/requests/InstanceRequests.h>
#include <host/requests/PathMatch.h>
#include <mof/Names.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace host {

namespace {

CMPIObjectPath* PathObject(const Target& target) { return Make<CMPIObjectPath>({target.path}); }

template <class Object>
void Append(std::vector<Object>& all, std::vector<Object> part) {
    all.insert(all.end(), std::make_move_iterator(part.begin()),
               std::make_move_iterator(part.end()));
}

}  // namespace

Status NoSuchInstance(const ObjectPath& path) {
    return {CMPI_RC_ERR_NOT_FOUND, "There is no instance '" + path.ToString() + "'."};
}

void KeepListed(std::vector<Instance>& instances, PropertyList properties) {
    if (!properties) return;
    for (Instance& instance : instances)
        std::erase_if(instance.properties, [&](const NamedValue& property) {
            return std::none_of(
                properties->begin(), properties->end(),
                [&](const std::string& wanted) { return mof::SameName(wanted, property.name); });
        });
}

ProviderCall InstanceRequests::Call(const ContextEntries& context, const Target& target,
                                    CMPIType accepted) const {
    return {router.Classes(), context, target.registration->provider, accepted};
}

std::vector<Instance> InstanceRequests::EnumerateOne(const ContextEntries& context,
                                                     const Target& target,
                                                     PropertyList properties) {
    auto& mi = providers.Get<CMPIInstanceMI>(target.registration->provider);
    const ProviderCall call = Call(context, target, CMPI_instance);
    NameList names(properties);
    call.Run([&] {
        return Implemented(mi.ft->enumerateInstances)(&mi, call.Context(), call.Result(),
                                                      PathObject(target), names.Get());
    });
    auto instances = call.Instances(target.path.nameSpace);
    KeepListed(instances, properties);
    return instances;
}

std::vector<Instance> InstanceRequests::Enumerate(const ContextEntries& context,
                                                  const ObjectPath& classPath,
                                                  PropertyList properties) {
    std::vector<Instance> all;
    AskEach(router.WithSubclasses(classPath), sink,
            [&](const Target& target) { Append(all, EnumerateOne(context, target, properties)); });
    return all;
}

std::vector<ObjectPath> InstanceRequests::EnumerateNames(const ContextEntries& context,
                                                         const ObjectPath& classPath) {
    std::vector<ObjectPath> all;
    AskEach(router.WithSubclasses(classPath), sink, [&](const Target& target) {
        auto& mi = providers.Get<CMPIInstanceMI>(target.registration->provider);
        const ProviderCall call = Call(context, target, CMPI_ref);
        call.Run([&] {
            return Implemented(mi.ft->enumerateInstanceNames)(&mi, call.Context(), call.Result(),
                                                              PathObject(target));
        });
        Append(all, call.Paths(target.path.nameSpace));
    });
    return all;
}

Instance InstanceRequests::Get(const ContextEntries& context, const ObjectPath& path,
                               PropertyList properties) {
    const Target target = router.One(path, kInstanceType);
    std::vector<Instance> found;
    try {
        found = GotFromProvider(context, target, properties);
    } catch (const Failure& failure) {
        if (failure.status.code != CMPI_RC_ERR_NOT_SUPPORTED) throw;
        found = GotByEnumeration(context, target, properties);
    }
    if (found.empty()) throw Failure(NoSuchInstance(path));
    return std::move(found.front());
}

std::vector<Instance> InstanceRequests::GotFromProvider(const ContextEntries& context,
                                                        const Target& target,
                                                        PropertyList properties) {
    auto& mi = providers.Get<CMPIInstanceMI>(target.registration->provider);
    const ProviderCall call = Call(context, target, CMPI_instance);
    NameList names(properties);
    call.Run([&] {
        return Implemented(mi.ft->getInstance)(&mi, call.Context(), call.Result(),
                                               PathObject(target), names.Get());
    });
    auto instances = call.Instances(target.path.nameSpace);
    KeepListed(instances, properties);
    return instances;
}

std::vector<Instance> InstanceRequests::GotByEnumeration(const ContextEntries& context,
                                                         const Target& target,
                                                         PropertyList properties) {
    const Target cls{
        target.registration, target.cls, {target.path.nameSpace, target.path.className, {}}};
    auto instances = EnumerateOne(context, cls, properties);
    std::erase_if(instances, [&](const Instance& instance) {
        return !SameObject(instance.path, target.path);
    });
    return instances;
}

}  // namespace host
