// Association classes: enumerated ones, and T_Answered, which answers association requests itself.
#include <atomic>
#include <vector>

#include "Support.h"

namespace test_module {

namespace {

const CMPIBroker* broker = nullptr;

std::atomic<int> enumerations;  // of instances, since they were taken last

struct End {
    const char* className;
    const char* name;
};

struct Link {
    const char* className;
    End from;
    End to;
};

constexpr Link kLinks[] = {
    {"T_Link", {"T_Thing", "one"}, {"T_Widget", "three"}},
    {"T_Link", {"T_Thing", "one"}, {"T_Widget", "three"}},  // as careless providers do
    {"T_Link", {"T_Thing", "one"}, {"T_Thing", "two"}},
    {"T_Link", {"T_Thing", "one"}, {"T_Thing", "gone"}},
    {"T_Link", {"T_Thing", "two"}, {"T_Thing", "one"}},
    {"T_Refused", {"T_Thing", "one"}, {"T_Widget", "three"}},
    {"T_Answered", {"T_Thing", "one"}, {"T_Thing", "two"}},
};

CMPIInstance* MakeLink(const CMPIObjectPath* classPath, const Link& link) {
    const std::string nameSpace = NameSpace(classPath);
    CMPIObjectPath* const path =
        broker->eft->newObjectPath(broker, nameSpace.c_str(), link.className, nullptr);
    CMPIInstance* const instance = broker->eft->newInstance(broker, path, nullptr);
    const auto set = [&](const char* property, const End& end) {
        CMPIValue value{};
        value.ref = PathWithName(broker, nameSpace, end.className, end.name);
        instance->ft->setProperty(instance, property, &value, CMPI_ref);
    };
    set("From", link.from);
    set("To", link.to);
    return instance;
}

std::vector<CMPIInstance*> LinksOf(const CMPIObjectPath* classPath) {
    std::vector<CMPIInstance*> links;
    for (const Link& link : kLinks)
        if (ClassName(classPath) == link.className) links.push_back(MakeLink(classPath, link));
    return links;
}

CMPIStatus EnumerateInstances(CMPIInstanceMI*, const CMPIContext* context, const CMPIResult* result,
                              const CMPIObjectPath* classPath, const char**) {
    ++enumerations;
    if (ClassName(classPath) == "T_Failing") {
        RunProbe(broker, context, result);
        return Error(broker, CMPI_RC_ERR_FAILED, "An end of the link is missing.");
    }
    for (const CMPIInstance* const link : LinksOf(classPath))
        result->ft->returnInstance(result, link);
    return kOk;
}

CMPIStatus EnumerateInstanceNames(CMPIInstanceMI*, const CMPIContext*, const CMPIResult* result,
                                  const CMPIObjectPath* classPath) {
    for (const CMPIInstance* const link : LinksOf(classPath))
        result->ft->returnObjectPath(result, link->ft->getObjectPath(link, nullptr));
    return kOk;
}

const CMPIInstanceMIFT kInstanceTable = {
    .ftVersion = CMPIVersion200,
    .miVersion = CMPIVersion200,
    .miName = "T_Link",
    .cleanup = CleanUp<CMPIInstanceMI>,
    .enumerateInstanceNames = EnumerateInstanceNames,
    .enumerateInstances = EnumerateInstances,
    .getInstance = NotSupported,
    .createInstance = NotSupported,
    .modifyInstance = NotSupported,
    .deleteInstance = NotSupported,
    .execQuery = NotSupported,
};

// What T_Answered says: its caption tells with which filters it was asked.
constexpr const char* kAnswer = "answer";

std::string Filters(const char* first, const char* second, const char* third, const char* fourth) {
    std::string text;
    for (const char* const filter : {first, second, third, fourth})
        text += std::string(filter ? filter : "NULL") + " ";
    return text;
}

CMPIStatus Associators(CMPIAssociationMI*, const CMPIContext*, const CMPIResult* result,
                       const CMPIObjectPath* path, const char* associationClass,
                       const char* resultClass, const char* role, const char* resultRole,
                       const char** properties) {
    if (std::string(associationClass) != "T_Answered") return {CMPI_RC_ERR_NOT_SUPPORTED, nullptr};
    const CMPIObjectPath* const answer = PathWithName(broker, NameSpace(path), "T_Thing", kAnswer);
    CMPIInstance* const instance = broker->eft->newInstance(broker, answer, nullptr);
    instance->ft->setPropertyFilter(instance, properties, nullptr);
    const std::string filters = Filters(associationClass, resultClass, role, resultRole);
    instance->ft->setProperty(instance, "Caption",
                              reinterpret_cast<const CMPIValue*>(filters.c_str()), CMPI_chars);
    return result->ft->returnInstance(result, instance);
}

CMPIStatus AssociatorNames(CMPIAssociationMI*, const CMPIContext*, const CMPIResult* result,
                           const CMPIObjectPath* path, const char* associationClass,
                           const char* resultClass, const char* role, const char* resultRole) {
    if (std::string(associationClass) != "T_Answered") return {CMPI_RC_ERR_NOT_SUPPORTED, nullptr};
    const std::string filters = Filters(associationClass, resultClass, role, resultRole);
    return result->ft->returnObjectPath(
        result, PathWithName(broker, NameSpace(path), "T_Thing", filters.c_str()));
}

CMPIStatus References(CMPIAssociationMI*, const CMPIContext*, const CMPIResult* result,
                      const CMPIObjectPath* path, const char* resultClass, const char*,
                      const char**) {
    if (std::string(resultClass) != "T_Answered") return {CMPI_RC_ERR_NOT_SUPPORTED, nullptr};
    const Link link{"T_Answered", {"T_Thing", "one"}, {"T_Thing", kAnswer}};
    return result->ft->returnInstance(result, MakeLink(path, link));
}

CMPIStatus ReferenceNames(CMPIAssociationMI*, const CMPIContext*, const CMPIResult* result,
                          const CMPIObjectPath* path, const char* resultClass, const char* role) {
    if (std::string(resultClass) != "T_Answered") return {CMPI_RC_ERR_NOT_SUPPORTED, nullptr};
    const std::string filters = Filters(resultClass, role, nullptr, nullptr);
    return result->ft->returnObjectPath(
        result, PathWithName(broker, NameSpace(path), "T_Thing", filters.c_str()));
}

const CMPIAssociationMIFT kAssociationTable = {
    .ftVersion = CMPIVersion200,
    .miVersion = CMPIVersion200,
    .miName = "T_Link",
    .cleanup = CleanUp<CMPIAssociationMI>,
    .associators = Associators,
    .associatorNames = AssociatorNames,
    .references = References,
    .referenceNames = ReferenceNames,
};

CMPIInstanceMI instanceInterface{nullptr, &kInstanceTable};
CMPIAssociationMI associationInterface{nullptr, &kAssociationTable};

}  // namespace

TEST_EXPORT CMPIInstanceMI* T_Link_Provider_Create_InstanceMI(const CMPIBroker* mb,
                                                              const CMPIContext*, CMPIStatus*) {
    broker = mb;
    CountMade();
    return &instanceInterface;
}

TEST_EXPORT CMPIAssociationMI* T_Link_Provider_Create_AssociationMI(const CMPIBroker* mb,
                                                                    const CMPIContext*,
                                                                    CMPIStatus*) {
    broker = mb;
    CountMade();
    return &associationInterface;
}

TEST_EXPORT int TakeLinkEnumerations() { return enumerations.exchange(0); }

// T_Mute is registered for methods only, so this is never asked for more.
TEST_EXPORT CMPIMethodMI* T_Link_Provider_Create_MethodMI(const CMPIBroker*, const CMPIContext*,
                                                          CMPIStatus*) {
    return nullptr;
}

}  // namespace test_module
