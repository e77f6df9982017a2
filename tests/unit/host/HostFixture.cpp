#include "HostFixture.h"

#include <dlfcn.h>

namespace host {

namespace {

constexpr const char* kNameSpace = "root/test";

using ProbeBody = std::function<void(const ProviderSide&)>;

void RunBody(void* data, const CMPIBroker* broker, const CMPIContext* context,
             const CMPIResult* result) {
    (*static_cast<const ProbeBody*>(data))({broker, context, result});
}

}  // namespace

CMPIString* ProviderSide::NewString(const char* text) const {
    return broker->eft->newString(broker, text, nullptr);
}

CMPIObjectPath* ProviderSide::NewPath(const char* className) const {
    return broker->eft->newObjectPath(broker, kNameSpace, className, nullptr);
}

CMPIInstance* ProviderSide::NewInstance(const char* className) const {
    return broker->eft->newInstance(broker, NewPath(className), nullptr);
}

std::string TextOf(const CMPIString* text) {
    return text ? text->ft->getCharPtr(text, nullptr) : "";
}

ObjectPath PathTo(const std::string& className, const std::string& name) {
    ObjectPath path{kNameSpace, className, {}};
    if (!name.empty()) path.keys.push_back({"Name", {CMPI_string, name}});
    return path;
}

const CMPIValue* Chars(const char* text) { return reinterpret_cast<const CMPIValue*>(text); }

HostFiles TestFiles() {
    const std::string data = HOST_TEST_DATA;
    return {HOST_TEST_MODULE, data + "/test.mof", data + "/test.reg"};
}

TestModule::TestModule() : library(dlopen(HOST_TEST_MODULE, RTLD_NOW | RTLD_LOCAL)) {}

TestModule::~TestModule() { dlclose(library); }

bool TestModule::IsLoaded() {
    void* const loaded = dlopen(HOST_TEST_MODULE, RTLD_NOW | RTLD_NOLOAD);
    if (loaded) dlclose(loaded);
    return loaded != nullptr;
}

void TestModule::SetProbe(ProbeFunction function, void* data) const {
    reinterpret_cast<SetProbeFunction>(dlsym(library, "SetProbe"))(function, data);
}

void TestModule::SetCleanupAnswer(CMPIrc code) const {
    reinterpret_cast<SetCleanupAnswerFunction>(dlsym(library, "SetCleanupAnswer"))(code);
}

InterfaceCounts TestModule::TakeInterfaceCounts() const {
    return reinterpret_cast<TakeInterfaceCountsFunction>(dlsym(library, "TakeInterfaceCounts"))();
}

int TestModule::TakeLinkEnumerations() const {
    return reinterpret_cast<TakeLinkEnumerationsFunction>(dlsym(library, "TakeLinkEnumerations"))();
}

void HostTest::InProvider(const ProbeBody& body) {
    const TestModule module;
    bool hasRun = false;
    const ProbeBody observed = [&](const ProviderSide& provider) {
        hasRun = true;
        body(provider);
    };
    module.SetProbe(RunBody, const_cast<ProbeBody*>(&observed));
    const MethodResult answer = host.InvokeMethod(PathTo("T_Thing", "one"), "Probe", {});
    module.SetProbe(nullptr, nullptr);
    EXPECT_EQ(answer.status.code, CMPI_RC_OK) << answer.status.text;
    EXPECT_TRUE(hasRun);
}

std::vector<Message> HostTest::Messages() {
    const std::lock_guard lock(mutex);
    return received;
}

}  // namespace host
