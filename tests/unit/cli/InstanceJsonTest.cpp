#include <cli/run/InstanceJson.h>
#include <framework/Instance_Ptr.h>
#include <gtest/gtest.h>
#include <schema/QUVSG_BMCI2C_ConcreteJob.h>
#include <schema/QUVSG_BMCI2C_DiagnosticCompletionRecord.h>
#include <schema/QUVSG_BMCI2C_ElementCapabilities.h>

#include <memory>

namespace cli {
namespace {

template <class Class>
std::unique_ptr<Class, cimple::Unref> New() {
    return std::unique_ptr<Class, cimple::Unref>(cimple::create<Class>());
}

TEST(InstanceJson, PropertiesWithoutAValue_AreNullInTheOrderOfTheClass) {
    const auto record = New<QUVSG_BMCI2C_DiagnosticCompletionRecord>();
    const Json json = ToJson(*record);
    EXPECT_EQ(json.size(), record->meta_class->feature_count);
    std::size_t position = 0;
    for (const auto& [name, value] : json.items()) {
        EXPECT_EQ(name, record->meta_class->features[position++].name);
        EXPECT_TRUE(value.is_null()) << name;
    }
}

TEST(InstanceJson, Values_KeepTheirTypes) {
    const auto job = New<QUVSG_BMCI2C_ConcreteJob>();
    job->Caption = "caption";
    job->Name = "";
    job->OperationalStatus = {2, 3};
    job->StatusDescriptions = {"one", "two"};
    job->DeleteOnCompletion = false;
    job->PercentComplete = 100;
    job->RunDayOfWeek = -1;
    job->ElapsedTime = cimple::Datetime(0);
    const Json json = ToJson(*job);
    EXPECT_EQ(json["Caption"], "caption");
    EXPECT_EQ(json["Name"], "");
    EXPECT_EQ(json["OperationalStatus"].dump(), "[2,3]");
    EXPECT_EQ(json["StatusDescriptions"].dump(), R"(["one","two"])");
    EXPECT_EQ(json["DeleteOnCompletion"].dump(), "false");
    EXPECT_EQ(json["PercentComplete"].dump(), "100");
    EXPECT_EQ(json["RunDayOfWeek"].dump(), "-1");
    EXPECT_EQ(json["ElapsedTime"], "00000000000000.000000:000");
}

TEST(InstanceJson, EmptyArray_IsNoNull) {
    const auto record = New<QUVSG_BMCI2C_DiagnosticCompletionRecord>();
    record->ResultArray = cimple::Array<bool>();
    EXPECT_EQ(ToJson(*record)["ResultArray"].dump(), "[]");
}

TEST(InstanceJson, References_AreLeftOut) {
    const auto association = New<QUVSG_BMCI2C_ElementCapabilities>();
    const Json json = ToJson(*association);
    EXPECT_FALSE(json.contains("ManagedElement"));
    EXPECT_FALSE(json.contains("Capabilities"));
}

}  // namespace
}  // namespace cli
