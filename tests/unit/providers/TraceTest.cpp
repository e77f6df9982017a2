// The trace lines of the providers with one instance or none, letter for letter.
#include <gmock/gmock.h>
#include <module/all_providers.h>

#include "Enumeration.h"
#include "ProviderFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TraceTest : public ProviderTest {
protected:
    template <class Provider, class Class>
    static std::vector<std::string> TraceOf() {
        FakeTraceSink::lines.clear();
        Provider provider;
        EXPECT_EQ(Enumerate<Class>(provider).status, 0);
        return Trace();
    }

    // Every printed line follows its indentation, which is empty for the outermost ones.
    template <class Provider, class Class>
    static void ExpectPrinted() {
        const std::string name = Class::static_meta_class.name;
        FakeTraceSink::lines.clear();
        Provider provider;
        Enumerate<Class>(provider);
        const std::vector<std::string>& lines = FakeTraceSink::lines;
        ASSERT_GT(lines.size(), 6U) << name;
        EXPECT_EQ(lines.front(), "+++" + name + "_Provider::enum_instances()\n");
        EXPECT_EQ(lines[2], name + " \n");
        EXPECT_EQ(lines[4], "{\n");
        EXPECT_EQ(lines[lines.size() - 2], "}\n");
        EXPECT_EQ(lines.back(), "---" + name + "_Provider::enum_instances()\n");
    }
};

}  // namespace

#define EXPECT_TRACE(X, MATCHER) \
    EXPECT_THAT((TraceOf<QUVSG_BMCI2C_##X##_Provider, QUVSG_BMCI2C_##X>()), MATCHER)

TEST_F(TraceTest, ClosingLineWithOk) {
    EXPECT_TRACE(SoftwareIdentity,
                 ElementsAre("+++QUVSG_BMCI2C_SoftwareIdentity_Provider::enum_instances()\n",
                             "---QUVSG_BMCI2C_SoftwareIdentity_Provider::enum_instances() OK\n"));
    EXPECT_TRACE(HelpService,
                 ElementsAre("+++QUVSG_BMCI2C_HelpService_Provider::enum_instances()\n",
                             "---QUVSG_BMCI2C_HelpService_Provider::enum_instances() OK\n"));
}

TEST_F(TraceTest, ClosingLineWithoutOk) {
    EXPECT_TRACE(ConcreteJob,
                 ElementsAre("+++QUVSG_BMCI2C_ConcreteJob_Provider::enum_instances()\n",
                             "---QUVSG_BMCI2C_ConcreteJob_Provider::enum_instances()\n"));
    EXPECT_TRACE(
        DiagnosticServiceCapabilities,
        ElementsAre("+++QUVSG_BMCI2C_DiagnosticServiceCapabilities_Provider::enum_instances()\n",
                    "---QUVSG_BMCI2C_DiagnosticServiceCapabilities_Provider::enum_instances()\n"));
    EXPECT_TRACE(DiagnosticSetting,
                 ElementsAre("+++QUVSG_BMCI2C_DiagnosticSetting_Provider::enum_instances()\n",
                             "---QUVSG_BMCI2C_DiagnosticSetting_Provider::enum_instances()\n"));
    EXPECT_TRACE(DiagnosticsLog,
                 ElementsAre("+++QUVSG_BMCI2C_DiagnosticsLog_Provider::enum_instances()\n",
                             "---QUVSG_BMCI2C_DiagnosticsLog_Provider::enum_instances()\n"));
    EXPECT_TRACE(
        DiagnosticServiceRecord,
        ElementsAre("+++QUVSG_BMCI2C_DiagnosticServiceRecord_Provider::enum_instances()\n",
                    "---QUVSG_BMCI2C_DiagnosticServiceRecord_Provider::enum_instances()\n"));
}

TEST_F(TraceTest, NoLine) {
    EXPECT_TRACE(ManagedSystemElement, IsEmpty());
    EXPECT_TRACE(DiagnosticService, IsEmpty());
    EXPECT_TRACE(DiagnosticCompletionRecord, IsEmpty());
    EXPECT_TRACE(CorrespondingSettingsRecord, IsEmpty());
    EXPECT_TRACE(DiagnosticSettingRecord, IsEmpty());
    EXPECT_TRACE(ElementCapabilities, IsEmpty());
    EXPECT_TRACE(ElementSoftwareIdentity, IsEmpty());
    EXPECT_TRACE(JobSettingData, IsEmpty());
    EXPECT_TRACE(LogManagesRecord, IsEmpty());
    EXPECT_TRACE(ServiceAvailableToElement, IsEmpty());
}

TEST_F(TraceTest, PrintedInstances_StandBetweenTheLines) {
    ExpectPrinted<QUVSG_BMCI2C_ConcreteJob_Provider, QUVSG_BMCI2C_ConcreteJob>();
    ExpectPrinted<QUVSG_BMCI2C_DiagnosticServiceRecord_Provider,
                  QUVSG_BMCI2C_DiagnosticServiceRecord>();
    ExpectPrinted<QUVSG_BMCI2C_DiagnosticsLog_Provider, QUVSG_BMCI2C_DiagnosticsLog>();
}
