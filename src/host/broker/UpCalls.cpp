// Requests that a provider makes of the host. They run on the provider's thread; what they yield
// belongs to the provider's own request.
#include <host/broker/Refusal.h>
#include <host/broker/Services.h>
#include <host/objects/Objects.h>

#include <memory>
#include <optional>
#include <utility>

namespace host {

namespace {

constexpr const char* kBrokerName = "bmci2c embedded host";

// A C array of names that ends with a null pointer; null is no list.
class Names {
public:
    explicit Names(const char** names) {
        if (!names) return;
        list.emplace();
        for (; *names; ++names) list->emplace_back(*names);
    }

    PropertyList Get() const { return list ? &*list : nullptr; }

private:
    std::optional<std::vector<std::string>> list;
};

CMPIEnumeration* MakeEnumeration(std::vector<Instance> instances) {
    EnumerationData data{CMPI_instance, {}};
    for (Instance& instance : instances)
        data.elements.push_back(
            {CMPI_instance, std::make_shared<const Instance>(std::move(instance))});
    return Make<CMPIEnumeration>(std::move(data));
}

CMPIEnumeration* EnumerateInstances(const CMPIBroker* mb, const CMPIContext* ctx,
                                    const CMPIObjectPath* classPath, const char** properties,
                                    CMPIStatus* rc) {
    return Guard(rc, [&] {
        const Services& services = ServicesOf(mb);
        const ContextEntries& context = Data(ctx).entries;
        return MakeEnumeration(
            services.instances.Enumerate(context, Data(classPath).path, Names(properties).Get()));
    });
}

}  // namespace

const CMPIBrokerFT kUpCalls = {
    .brokerCapabilities = CMPI_MB_BasicRead | CMPI_MB_PropertyFiltering,
    .brokerVersion = CMPIVersion200,
    .brokerName = kBrokerName,
    .prepareAttachThread = Refuse,
    .attachThread = Refuse,
    .detachThread = Refuse,
    .deliverIndication = Refuse,
    .enumerateInstanceNames = Refuse,
    .getInstance = Refuse,
    .createInstance = Refuse,
    .modifyInstance = Refuse,
    .deleteInstance = Refuse,
    .execQuery = Refuse,
    .enumerateInstances = EnumerateInstances,
    .associators = Refuse,
    .associatorNames = Refuse,
    .references = Refuse,
    .referenceNames = Refuse,
    .invokeMethod = Refuse,
    .setProperty = Refuse,
    .getProperty = Refuse,
    .enumerateInstancesFiltered = Refuse,
    .associatorsFiltered = Refuse,
    .referencesFiltered = Refuse,
};

}  // namespace host
