#include "Support.h"

#include <atomic>

namespace test_module {

namespace {

std::atomic<int> made;
std::atomic<int> cleanedUp;
std::atomic<CMPIrc> cleanupAnswer = CMPI_RC_OK;
ProbeFunction probe = nullptr;
void* probeData = nullptr;

}  // namespace

CMPIStatus Error(const CMPIBroker* broker, CMPIrc code, const char* text) {
    return {code, broker->eft->newString(broker, text, nullptr)};
}

std::string Text(const CMPIString* text) { return text->ft->getCharPtr(text, nullptr); }

std::string ClassName(const CMPIObjectPath* path) {
    return Text(path->ft->getClassName(path, nullptr));
}

std::string NameSpace(const CMPIObjectPath* path) {
    return Text(path->ft->getNameSpace(path, nullptr));
}

CMPIObjectPath* PathWithName(const CMPIBroker* broker, const std::string& nameSpace,
                             const char* className, const char* name) {
    CMPIObjectPath* const path =
        broker->eft->newObjectPath(broker, nameSpace.c_str(), className, nullptr);
    path->ft->addKey(path, "Name", reinterpret_cast<const CMPIValue*>(name), CMPI_chars);
    return path;
}

void CountMade() { ++made; }

template <class Interface>
CMPIStatus CleanUp(Interface*, const CMPIContext*, CMPIBoolean terminating) {
    if (terminating) ++cleanedUp;
    return {cleanupAnswer, nullptr};
}

template CMPIStatus CleanUp(CMPIInstanceMI*, const CMPIContext*, CMPIBoolean);
template CMPIStatus CleanUp(CMPIMethodMI*, const CMPIContext*, CMPIBoolean);
template CMPIStatus CleanUp(CMPIAssociationMI*, const CMPIContext*, CMPIBoolean);

void RunProbe(const CMPIBroker* broker, const CMPIContext* context, const CMPIResult* result) {
    if (probe) probe(probeData, broker, context, result);
}

TEST_EXPORT void SetProbe(ProbeFunction function, void* data) {
    probe = function;
    probeData = data;
}

TEST_EXPORT void SetCleanupAnswer(CMPIrc code) { cleanupAnswer = code; }

TEST_EXPORT InterfaceCounts TakeInterfaceCounts() {
    return {made.exchange(0), cleanedUp.exchange(0)};
}

}  // namespace test_module
