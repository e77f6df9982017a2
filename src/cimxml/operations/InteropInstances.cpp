#include <cimxml/operations/InteropInstances.h>
#include <host/loading/LoadError.h>
#include <unistd.h>

#include <climits>
#include <memory>

namespace cimxml {

namespace {

using host::Instance;
using host::NamedValue;
using host::ObjectPath;
using host::Value;

constexpr const char* kObjectManager = "CIM_ObjectManager";
constexpr const char* kNameSpace = "CIM_Namespace";
constexpr const char* kProfile = "CIM_RegisteredProfile";
constexpr const char* kSystem = "CIM_ComputerSystem";
constexpr const char* kManagerName = "bmci2c";
constexpr auto kNumbers = static_cast<CMPIType>(CMPI_ARRAY | CMPI_uint16);
constexpr std::uint64_t kOk = 2;             // OperationalStatus
constexpr std::uint64_t kUnknown = 0;        // what the CIM_Namespace says of its classes
constexpr std::uint64_t kOther = 1;          // RegisteredOrganization
constexpr std::uint64_t kDmtf = 2;           // RegisteredOrganization
constexpr std::uint64_t kNotAdvertised = 2;  // AdvertiseTypes

std::string MachineName() {
    char name[HOST_NAME_MAX + 1] = {};
    ::gethostname(name, HOST_NAME_MAX);
    return name;
}

NamedValue Text(const char* name, const std::string& text) { return {name, {CMPI_string, text}}; }

Value ListOf(std::uint64_t number) { return {kNumbers, std::vector<Value>{{CMPI_uint16, number}}}; }

std::vector<NamedValue> RegistrationProfile() {
    return {Text("InstanceID", "DMTF:Profile Registration:1.0.0"),
            {"RegisteredOrganization", {CMPI_uint16, kDmtf}},
            Text("RegisteredName", "Profile Registration"),
            Text("RegisteredVersion", "1.0.0"),
            {"AdvertiseTypes", ListOf(kNotAdvertised)}};
}

std::vector<NamedValue> DiagnosticProfile() {
    return {Text("InstanceID", "QUV:BMC I2C Bus Test:1.0.0"),
            {"RegisteredOrganization", {CMPI_uint16, kOther}},
            Text("OtherRegisteredOrganization", "QUV"),
            Text("RegisteredName", "BMC I2C Bus Test"),
            Text("RegisteredVersion", "1.0.0"),
            {"AdvertiseTypes", ListOf(kNotAdvertised)}};
}

NamedValue Reference(const char* name, const ObjectPath& path) {
    return {name, {CMPI_ref, std::make_shared<const ObjectPath>(path)}};
}

}  // namespace

InteropInstances::InteropInstances(const host::ClassRepository& repository,
                                   const std::string& version,
                                   const std::vector<std::string>& names)
    : classes(repository),
      registrationProfile(Make(kProfile, RegistrationProfile())),
      diagnosticProfile(Make(kProfile, DiagnosticProfile())) {
    objects.push_back(ObjectManager(version));
    for (const std::string& name : names) objects.push_back(NameSpaceNamed(name));
    objects.push_back(registrationProfile);
    objects.push_back(diagnosticProfile);
    Conformances({});  // its class must exist, too
}

// All properties of the class in class order, NULL where none is given; keys make the path.
Instance InteropInstances::Make(const char* className, const std::vector<NamedValue>& given) const {
    const host::ClassInfo* const cls = classes.Find(className);
    if (!cls)
        throw host::LoadError("The schema of " + std::string(kInteropName) +
                              " does not declare the class '" + className + "'.");
    Instance instance{{kInteropName, cls->Name(), {}}, {}};
    for (const host::PropertyInfo& property : cls->properties) {
        const Value* const value = host::FindValue(given, property.name);
        instance.properties.push_back({property.name, value ? *value : Value{property.type, {}}});
        if (property.isKey) instance.path.keys.push_back(instance.properties.back());
    }
    return instance;
}

Instance InteropInstances::ObjectManager(const std::string& version) const {
    return Make(kObjectManager, {Text("SystemCreationClassName", kSystem),
                                 Text("SystemName", MachineName()),
                                 Text("CreationClassName", kObjectManager),
                                 Text("Name", kManagerName),
                                 Text("ElementName", kManagerName),
                                 Text("Description", "bmci2c serve, version " + version),
                                 Text("Version", version),
                                 {"OperationalStatus", ListOf(kOk)},
                                 {"Started", {CMPI_boolean, true}},
                                 {"GatherStatisticalData", {CMPI_boolean, false}}});
}

Instance InteropInstances::NameSpaceNamed(const std::string& name) const {
    return Make(kNameSpace, {Text("SystemCreationClassName", kSystem),
                             Text("SystemName", MachineName()),
                             Text("ObjectManagerCreationClassName", kObjectManager),
                             Text("ObjectManagerName", kManagerName),
                             Text("CreationClassName", kNameSpace),
                             Text("Name", name),
                             {"ClassInfo", {CMPI_uint16, kUnknown}},
                             {"ClassType", {CMPI_uint16, kUnknown}}});
}

Instance InteropInstances::Conformance(const ObjectPath& profile, const ObjectPath& element) const {
    return Make(kConformance,
                {Reference("ConformantStandard", profile), Reference("ManagedElement", element)});
}

std::vector<Instance> InteropInstances::Conformances(
    const std::vector<ObjectPath>& diagnosticServices) const {
    std::vector<Instance> all;
    for (const Instance* const profile : {&registrationProfile, &diagnosticProfile})
        all.push_back(Conformance(registrationProfile.path, profile->path));
    for (const ObjectPath& service : diagnosticServices)
        all.push_back(Conformance(diagnosticProfile.path, service));
    return all;
}

}  // namespace cimxml
