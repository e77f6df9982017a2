#include <cimxml/operations/InteropNameSpace.h>
#include <host/requests/InstanceRequests.h>
#include <host/requests/PathMatch.h>
#include <mof/Reader.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <utility>

namespace cimxml {

namespace {

using host::AssociationQuery;
using host::ClassInfo;
using host::Instance;
using host::InstancesResult;
using host::NamedValue;
using host::NamesResult;
using host::ObjectPath;
using host::PropertyList;
using host::Status;
using host::Value;

constexpr const char* kName = "root/interop";
constexpr const char* kObjectManager = "CIM_ObjectManager";
constexpr const char* kNameSpace = "CIM_Namespace";
constexpr const char* kSystem = "CIM_ComputerSystem";
constexpr const char* kManagerName = "bmci2c";
constexpr auto kNumbers = static_cast<CMPIType>(CMPI_ARRAY | CMPI_uint16);
constexpr std::uint64_t kOk = 2;       // OperationalStatus
constexpr std::uint64_t kUnknown = 0;  // what the CIM_Namespace says of its classes

mof::Schema ReadSchema(const std::string& path) {
    try {
        return mof::ReadFile(path);
    } catch (const mof::Error& error) {
        throw host::LoadError(std::string("The schema cannot be read: ") + error.what());
    }
}

std::string MachineName() {
    char name[HOST_NAME_MAX + 1] = {};
    ::gethostname(name, HOST_NAME_MAX);
    return name;
}

NamedValue Text(const char* name, const std::string& text) { return {name, {CMPI_string, text}}; }

// An instance with all properties of its class in class order, NULL where none is given; keys make
// its path.
Instance MakeInstance(const host::ClassRepository& classes, const char* className,
                      const std::vector<NamedValue>& given) {
    const ClassInfo& cls = *classes.Find(className);
    Instance instance{{kName, cls.Name(), {}}, {}};
    for (const host::PropertyInfo& property : cls.properties) {
        const Value* const value = host::FindValue(given, property.name);
        instance.properties.push_back({property.name, value ? *value : Value{property.type, {}}});
        if (property.isKey) instance.path.keys.push_back(instance.properties.back());
    }
    return instance;
}

Instance ObjectManager(const host::ClassRepository& classes, const std::string& version) {
    const Value status{kNumbers, std::vector<Value>{{CMPI_uint16, kOk}}};
    return MakeInstance(classes, kObjectManager,
                        {Text("SystemCreationClassName", kSystem),
                         Text("SystemName", MachineName()),
                         Text("CreationClassName", kObjectManager),
                         Text("Name", kManagerName),
                         Text("ElementName", kManagerName),
                         Text("Description", "bmci2c serve, version " + version),
                         Text("Version", version),
                         {"OperationalStatus", status},
                         {"Started", {CMPI_boolean, true}},
                         {"GatherStatisticalData", {CMPI_boolean, false}}});
}

Instance NameSpaceInstance(const host::ClassRepository& classes, const std::string& name) {
    return MakeInstance(classes, kNameSpace,
                        {Text("SystemCreationClassName", kSystem),
                         Text("SystemName", MachineName()),
                         Text("ObjectManagerCreationClassName", kObjectManager),
                         Text("ObjectManagerName", kManagerName),
                         Text("CreationClassName", kNameSpace),
                         Text("Name", name),
                         {"ClassInfo", {CMPI_uint16, kUnknown}},
                         {"ClassType", {CMPI_uint16, kUnknown}}});
}

class Interop : public NameSpace {
public:
    Interop(const std::string& schema, const std::string& version, std::vector<std::string> names)
        : NameSpace(kName), classes(ReadSchema(schema)) {
        for (const char* needed : {kObjectManager, kNameSpace})
            if (!classes.Find(needed))
                throw host::LoadError("The schema '" + schema + "' does not declare the class '" +
                                      needed + "'.");
        names.emplace_back(kName);
        instances.push_back(ObjectManager(classes, version));
        for (const std::string& one : names) instances.push_back(NameSpaceInstance(classes, one));
    }

    const host::ClassRepository& Classes() const override { return classes; }

    InstancesResult EnumerateInstances(const ObjectPath& classPath,
                                       PropertyList properties) const override {
        InstancesResult result;
        for (const Instance& instance : instances)
            if (classes.Find(instance.path.className)->IsA(classPath.className))
                result.instances.push_back(instance);
        host::KeepListed(result.instances, properties);
        return result;
    }

    NamesResult EnumerateInstanceNames(const ObjectPath& classPath) const override {
        NamesResult result;
        for (Instance& instance : EnumerateInstances(classPath, nullptr).instances)
            result.names.push_back(std::move(instance.path));
        return result;
    }

    InstancesResult GetInstance(const ObjectPath& path, PropertyList properties) const override {
        InstancesResult result;
        for (const Instance& instance : instances)
            if (host::SameObject(instance.path, path)) result.instances.push_back(instance);
        if (result.instances.empty()) result.status = host::NoSuchInstance(path);
        host::KeepListed(result.instances, properties);
        return result;
    }

    // Nothing here is associated.
    InstancesResult Associators(const AssociationQuery& query, PropertyList) const override {
        return {StatusOf(query), {}};
    }
    NamesResult AssociatorNames(const AssociationQuery& query) const override {
        return {StatusOf(query), {}};
    }
    InstancesResult References(const AssociationQuery& query, PropertyList) const override {
        return {StatusOf(query), {}};
    }
    NamesResult ReferenceNames(const AssociationQuery& query) const override {
        return {StatusOf(query), {}};
    }

    host::MethodResult InvokeMethod(const ObjectPath& target, const std::string& method,
                                    const std::vector<NamedValue>&) const override {
        if (classes.Find(target.className)->FindMethod(method))
            return {{CMPI_RC_ERR_NOT_SUPPORTED,
                     "The method '" + method + "' of this server cannot be called."},
                    {},
                    {}};
        return {{CMPI_RC_ERR_METHOD_NOT_FOUND,
                 "The class '" + target.className + "' has no method '" + method + "'."},
                {},
                {}};
    }

private:
    // Of a query that finds nothing.
    Status StatusOf(const AssociationQuery& query) const {
        for (const std::string* filter : {&query.associationClass, &query.resultClass})
            if (!filter->empty() && !classes.Find(*filter))
                return {CMPI_RC_ERR_INVALID_PARAMETER,
                        "The class '" + *filter + "' does not exist."};
        return {};
    }

    const host::ClassRepository classes;
    std::vector<Instance> instances;
};

}  // namespace

std::unique_ptr<const NameSpace> InteropNameSpace(const std::string& schema,
                                                  const std::string& version,
                                                  const std::vector<std::string>& names) {
    return std::make_unique<Interop>(schema, version, names);
}

}  // namespace cimxml
