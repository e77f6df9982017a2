// Providers that are wrong on purpose.
#include "Support.h"

namespace test_module {

namespace {

const CMPIBroker* broker = nullptr;

// Returns something before it fails, and something else than it was asked for.
CMPIStatus FailToEnumerate(CMPIInstanceMI*, const CMPIContext*, const CMPIResult* result,
                           const CMPIObjectPath* classPath, const char**) {
    result->ft->returnObjectPath(result, classPath);
    result->ft->returnInstance(result, broker->eft->newInstance(broker, classPath, nullptr));
    return Error(broker, CMPI_RC_ERR_FAILED, "The store is locked.");
}

// Returns an object path as an instance: the host refuses it, and this passes the refusal on.
CMPIStatus EnumerateWrongKind(CMPIInstanceMI*, const CMPIContext*, const CMPIResult* result,
                              const CMPIObjectPath* classPath) {
    return result->ft->returnInstance(result, broker->eft->newInstance(broker, classPath, nullptr));
}

const CMPIInstanceMIFT kFailingTable = {
    .ftVersion = CMPIVersion200,
    .miVersion = CMPIVersion200,
    .miName = "T_Bad",
    .cleanup = CleanUp<CMPIInstanceMI>,
    .enumerateInstanceNames = EnumerateWrongKind,
    .enumerateInstances = FailToEnumerate,
    .getInstance = NotSupported,
    .createInstance = NotSupported,
    .modifyInstance = NotSupported,
    .deleteInstance = NotSupported,
    .execQuery = NotSupported,
};

// A table that says what it is and nothing else.
const CMPIInstanceMIFT kBareTable = {
    .ftVersion = CMPIVersion200,
    .miVersion = CMPIVersion200,
    .miName = "T_Bare",
    .cleanup = nullptr,
    .enumerateInstanceNames = nullptr,
    .enumerateInstances = nullptr,
    .getInstance = nullptr,
    .createInstance = nullptr,
    .modifyInstance = nullptr,
    .deleteInstance = nullptr,
    .execQuery = nullptr,
};

CMPIInstanceMI failing{nullptr, &kFailingTable};
CMPIInstanceMI bare{nullptr, &kBareTable};

}  // namespace

TEST_EXPORT CMPIInstanceMI* T_Bad_Provider_Create_InstanceMI(const CMPIBroker* mb,
                                                             const CMPIContext*, CMPIStatus*) {
    broker = mb;
    CountMade();
    return &failing;
}

TEST_EXPORT CMPIInstanceMI* T_Bare_Provider_Create_InstanceMI(const CMPIBroker*, const CMPIContext*,
                                                              CMPIStatus*) {
    return &bare;
}

TEST_EXPORT CMPIInstanceMI* T_Null_Provider_Create_InstanceMI(const CMPIBroker*, const CMPIContext*,
                                                              CMPIStatus*) {
    return nullptr;
}

// Asks the host for its own class before it exists, and refuses with the host's answer.
TEST_EXPORT CMPIInstanceMI* T_Curious_Provider_Create_InstanceMI(const CMPIBroker* mb,
                                                                 const CMPIContext* context,
                                                                 CMPIStatus* rc) {
    const CMPIObjectPath* const path =
        mb->eft->newObjectPath(mb, "root/test", "T_Curious", nullptr);
    mb->bft->enumerateInstances(mb, context, path, nullptr, rc);
    return nullptr;
}

}  // namespace test_module
