// T_Thing and its relatives: a store of instances.
#include <map>
#include <utility>

#include "Support.h"

namespace test_module {

namespace {

const CMPIBroker* broker = nullptr;

// Captions by class and name.
const std::map<std::pair<std::string, std::string>, std::string> store{
    {{"T_Thing", "one"}, "first"},    {{"T_Thing", "two"}, "second"},
    {{"T_Widget", "three"}, "third"}, {{"T_Numbered", "four"}, "fourth"},
    {{"T_Whole", "five"}, "unused"},
};

constexpr CMPIUint32 kNumber = 44;  // the second key of every T_Numbered

CMPIInstance* MakeInstance(const CMPIObjectPath* classPath, const std::string& name,
                           const std::string& caption, const char** properties) {
    CMPIInstance* const instance = broker->eft->newInstance(broker, classPath, nullptr);
    instance->ft->setPropertyFilter(instance, properties, nullptr);
    const auto set = [&](const char* property, const std::string& value) {
        instance->ft->setProperty(instance, property,
                                  reinterpret_cast<const CMPIValue*>(value.c_str()), CMPI_chars);
    };
    set("Name", name);
    set("Caption", caption);
    CMPIValue number{};
    number.uint32 = kNumber;
    instance->ft->setProperty(instance, "Number", &number, CMPI_uint32);
    return instance;
}

CMPIStatus EnumerateInstances(CMPIInstanceMI*, const CMPIContext*, const CMPIResult* result,
                              const CMPIObjectPath* classPath, const char** properties) {
    for (const auto& [id, caption] : store)
        if (id.first == ClassName(classPath))
            result->ft->returnInstance(result,
                                       MakeInstance(classPath, id.second, caption, properties));
    result->ft->returnDone(result);
    return kOk;
}

CMPIStatus EnumerateInstanceNames(CMPIInstanceMI*, const CMPIContext*, const CMPIResult* result,
                                  const CMPIObjectPath* classPath) {
    for (const auto& [id, caption] : store) {
        if (id.first != ClassName(classPath)) continue;
        const CMPIInstance* const instance = MakeInstance(classPath, id.second, caption, nullptr);
        result->ft->returnObjectPath(result, instance->ft->getObjectPath(instance, nullptr));
    }
    return kOk;
}

std::pair<std::string, std::string> IdOf(const CMPIObjectPath* path) {
    const CMPIData name = path->ft->getKey(path, "name", nullptr);
    return {ClassName(path), name.type == CMPI_string ? Text(name.value.string) : ""};
}

CMPIStatus GetInstance(CMPIInstanceMI*, const CMPIContext*, const CMPIResult* result,
                       const CMPIObjectPath* path, const char** properties) {
    const auto found = store.find(IdOf(path));
    if (found != store.end())
        result->ft->returnInstance(
            result, MakeInstance(path, found->first.second, found->second, properties));
    return kOk;
}

const CMPIInstanceMIFT kTable = {
    .ftVersion = CMPIVersion200,
    .miVersion = CMPIVersion200,
    .miName = "T_Thing",
    .cleanup = CleanUp<CMPIInstanceMI>,
    .enumerateInstanceNames = EnumerateInstanceNames,
    .enumerateInstances = EnumerateInstances,
    .getInstance = GetInstance,
    .createInstance = NotSupported,
    .modifyInstance = NotSupported,
    .deleteInstance = NotSupported,
    .execQuery = NotSupported,
};

CMPIInstanceMI interface { nullptr, &kTable };

}  // namespace

TEST_EXPORT CMPIInstanceMI* T_Thing_Provider_Create_InstanceMI(const CMPIBroker* mb,
                                                               const CMPIContext*, CMPIStatus*) {
    broker = mb;
    CountMade();
    return &interface;
}

}  // namespace test_module
