// Requests that a provider makes of the host. They run on the provider's thread; what they yield
// belongs to the provider's own request.
#include <host/broker/Services.h>
#include <host/objects/Conversion.h>
#include <host/objects/Objects.h>

#include <memory>
#include <optional>
#include <utility>

namespace host {

namespace {

constexpr const char* kBrokerName = "bmci2c embedded host";

// The part that all up-calls share: whom they ask, and in which context.
struct UpCall {
    UpCall(const CMPIBroker* mb, const CMPIContext* ctx)
        : services(ServicesOf(mb)), context(Data(ctx).entries) {}

    const Services& services;
    const ContextEntries& context;
};

const ObjectPath& Path(const CMPIObjectPath* op) { return Data(op).path; }

std::string Text(const char* text) { return text ? text : ""; }

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

template <class Plain>
CMPIEnumeration* MakeEnumeration(CMPIType type, std::vector<Plain> objects) {
    EnumerationData data{type, {}};
    for (Plain& object : objects)
        data.elements.push_back({type, std::make_shared<const Plain>(std::move(object))});
    return Make<CMPIEnumeration>(std::move(data));
}

CMPIEnumeration* MakeEnumeration(std::vector<Instance> instances) {
    return MakeEnumeration(CMPI_instance, std::move(instances));
}

CMPIEnumeration* MakeEnumeration(std::vector<ObjectPath> paths) {
    return MakeEnumeration(CMPI_ref, std::move(paths));
}

CMPIContext* PrepareAttachThread(const CMPIBroker* mb, const CMPIContext* ctx) {
    return Guard(nullptr, [&] {
        const UpCall call(mb, ctx);
        return call.services.threads.Prepare(call.context);
    });
}

CMPIStatus AttachThread(const CMPIBroker* mb, const CMPIContext* ctx) {
    return GuardStatus([&] { ServicesOf(mb).threads.Attach(ctx); });
}

CMPIStatus DetachThread(const CMPIBroker* mb, const CMPIContext* ctx) {
    return GuardStatus([&] { ServicesOf(mb).threads.Detach(ctx); });
}

CMPIStatus DeliverIndication(const CMPIBroker* mb, const CMPIContext* ctx, const char* /*ns*/,
                             const CMPIInstance* /*ind*/) {
    return GuardStatus([&] {
        const UpCall call(mb, ctx);
        throw Failure(CMPI_RC_ERR_NOT_SUPPORTED, "This host delivers no indications.");
    });
}

CMPIEnumeration* ExecQuery(const CMPIBroker* mb, const CMPIContext* ctx,
                           const CMPIObjectPath* /*classPath*/, const char* /*query*/,
                           const char* /*lang*/, CMPIStatus* rc) {
    return Guard(rc, [&]() -> CMPIEnumeration* {
        const UpCall call(mb, ctx);
        throw Failure(CMPI_RC_ERR_NOT_SUPPORTED, "This host executes no queries.");
    });
}

CMPIEnumeration* EnumerateInstanceNames(const CMPIBroker* mb, const CMPIContext* ctx,
                                        const CMPIObjectPath* classPath, CMPIStatus* rc) {
    return Guard(rc, [&] {
        const UpCall call(mb, ctx);
        return MakeEnumeration(
            call.services.instances.EnumerateNames(call.context, Path(classPath)));
    });
}

CMPIEnumeration* EnumerateInstances(const CMPIBroker* mb, const CMPIContext* ctx,
                                    const CMPIObjectPath* classPath, const char** properties,
                                    CMPIStatus* rc) {
    return Guard(rc, [&] {
        const UpCall call(mb, ctx);
        return MakeEnumeration(call.services.instances.Enumerate(call.context, Path(classPath),
                                                                 Names(properties).Get()));
    });
}

CMPIInstance* GetInstance(const CMPIBroker* mb, const CMPIContext* ctx,
                          const CMPIObjectPath* instPath, const char** properties, CMPIStatus* rc) {
    return Guard(rc, [&] {
        const UpCall call(mb, ctx);
        const Instance instance =
            call.services.instances.Get(call.context, Path(instPath), Names(properties).Get());
        return Make<CMPIInstance>(Imported(call.services.classes, instance));
    });
}

CMPIObjectPath* CreateInstance(const CMPIBroker* mb, const CMPIContext* ctx,
                               const CMPIObjectPath* classPath, const CMPIInstance* newInst,
                               CMPIStatus* rc) {
    return Guard(rc, [&] {
        const UpCall call(mb, ctx);
        return Make<CMPIObjectPath>({call.services.instances.Create(call.context, Path(classPath),
                                                                    Exported(Data(newInst)))});
    });
}

CMPIStatus ModifyInstance(const CMPIBroker* mb, const CMPIContext* ctx,
                          const CMPIObjectPath* instPath, const CMPIInstance* modInst,
                          const char** properties) {
    return GuardStatus([&] {
        const UpCall call(mb, ctx);
        call.services.instances.Modify(call.context, Path(instPath), Exported(Data(modInst)),
                                       Names(properties).Get());
    });
}

CMPIStatus DeleteInstance(const CMPIBroker* mb, const CMPIContext* ctx,
                          const CMPIObjectPath* instPath) {
    return GuardStatus([&] {
        const UpCall call(mb, ctx);
        call.services.instances.Delete(call.context, Path(instPath));
    });
}

CMPIEnumeration* Associators(const CMPIBroker* mb, const CMPIContext* ctx,
                             const CMPIObjectPath* instPath, const char* assocClass,
                             const char* resultClass, const char* role, const char* resultRole,
                             const char** properties, CMPIStatus* rc) {
    return Guard(rc, [&] {
        const UpCall call(mb, ctx);
        return MakeEnumeration(call.services.associations.Associators(
            call.context,
            {Path(instPath), Text(assocClass), Text(resultClass), Text(role), Text(resultRole)},
            Names(properties).Get()));
    });
}

CMPIEnumeration* AssociatorNames(const CMPIBroker* mb, const CMPIContext* ctx,
                                 const CMPIObjectPath* instPath, const char* assocClass,
                                 const char* resultClass, const char* role, const char* resultRole,
                                 CMPIStatus* rc) {
    return Guard(rc, [&] {
        const UpCall call(mb, ctx);
        return MakeEnumeration(call.services.associations.AssociatorNames(
            call.context,
            {Path(instPath), Text(assocClass), Text(resultClass), Text(role), Text(resultRole)}));
    });
}

CMPIEnumeration* References(const CMPIBroker* mb, const CMPIContext* ctx,
                            const CMPIObjectPath* instPath, const char* resultClass,
                            const char* role, const char** properties, CMPIStatus* rc) {
    return Guard(rc, [&] {
        const UpCall call(mb, ctx);
        return MakeEnumeration(call.services.associations.References(
            call.context,
            {.source = Path(instPath), .associationClass = Text(resultClass), .role = Text(role)},
            Names(properties).Get()));
    });
}

CMPIEnumeration* ReferenceNames(const CMPIBroker* mb, const CMPIContext* ctx,
                                const CMPIObjectPath* instPath, const char* resultClass,
                                const char* role, CMPIStatus* rc) {
    return Guard(rc, [&] {
        const UpCall call(mb, ctx);
        return MakeEnumeration(call.services.associations.ReferenceNames(
            call.context,
            {.source = Path(instPath), .associationClass = Text(resultClass), .role = Text(role)}));
    });
}

CMPIData InvokeMethod(const CMPIBroker* mb, const CMPIContext* ctx, const CMPIObjectPath* objPath,
                      const char* method, const CMPIArgs* in, CMPIArgs* out, CMPIStatus* rc) {
    return Guard(rc, [&] {
        const UpCall call(mb, ctx);
        MethodAnswer answer = call.services.methods.Invoke(
            call.context, Path(objPath), Required(method, "The method's name"), Data(in).values);
        if (out)
            for (NamedValue& argument : answer.out)
                SetValue(Data(out).values, argument.name.c_str(), std::move(argument.value));
        return ToCmpi(answer.returnValue);
    });
}

// The property's name as the class spells it. Throws Failure when the class lacks it.
const std::string& PropertyName(const UpCall& call, const CMPIObjectPath* instPath,
                                const char* name) {
    const std::string& className = Path(instPath).className;
    const ClassInfo* const cls = call.services.classes.Find(className);
    if (!cls) throw Failure(CMPI_RC_ERR_INVALID_CLASS, "There is no class '" + className + "'.");
    const PropertyInfo* const property = cls->FindProperty(Required(name, "The property's name"));
    if (!property)
        throw Failure(CMPI_RC_ERR_NO_SUCH_PROPERTY,
                      "The class '" + className + "' has no property '" + name + "'.");
    return property->name;
}

CMPIStatus SetProperty(const CMPIBroker* mb, const CMPIContext* ctx, const CMPIObjectPath* instPath,
                       const char* name, const CMPIValue* value, CMPIType type) {
    return GuardStatus([&] {
        const UpCall call(mb, ctx);
        const std::vector<std::string> properties{PropertyName(call, instPath, name)};
        const Instance instance{Path(instPath), {{properties.front(), FromCmpi(value, type)}}};
        call.services.instances.Modify(call.context, Path(instPath), instance, &properties);
    });
}

CMPIData GetProperty(const CMPIBroker* mb, const CMPIContext* ctx, const CMPIObjectPath* instPath,
                     const char* name, CMPIStatus* rc) {
    return Guard(rc, [&] {
        const UpCall call(mb, ctx);
        const std::vector<std::string> properties{PropertyName(call, instPath, name)};
        const Instance instance =
            call.services.instances.Get(call.context, Path(instPath), &properties);
        return LookUp(instance.properties, name, "property");
    });
}

}  // namespace

const CMPIBrokerFT kUpCalls = {
    .brokerCapabilities =
        CMPI_MB_InstanceManipulation | CMPI_MB_AssociationTraversal | CMPI_MB_PropertyFiltering,
    .brokerVersion = CMPIVersion200,
    .brokerName = kBrokerName,
    .prepareAttachThread = PrepareAttachThread,
    .attachThread = AttachThread,
    .detachThread = DetachThread,
    .deliverIndication = DeliverIndication,
    .enumerateInstanceNames = EnumerateInstanceNames,
    .getInstance = GetInstance,
    .createInstance = CreateInstance,
    .modifyInstance = ModifyInstance,
    .deleteInstance = DeleteInstance,
    .execQuery = ExecQuery,
    .enumerateInstances = EnumerateInstances,
    .associators = Associators,
    .associatorNames = AssociatorNames,
    .references = References,
    .referenceNames = ReferenceNames,
    .invokeMethod = InvokeMethod,
    .setProperty = SetProperty,
    .getProperty = GetProperty,
    // CIM servers do not have the filtered calls, so neither does this host.
    .enumerateInstancesFiltered = nullptr,
    .associatorsFiltered = nullptr,
    .referencesFiltered = nullptr,
};

}  // namespace host
