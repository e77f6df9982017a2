// A client finds the service, runs the diagnostic, and reads the record.
#include "ServerTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::StartsWith;

using MainJob = ServerTest;

}  // namespace

FOR_EVERY_SERVER(MainJob);

TEST_P(MainJob, ServiceIsFound_WithEmptyTextsForTheKeysThatHaveNoValue) {
    const Reply names = server.EnumerateInstanceNames(kService);
    EXPECT_TRUE(names.IsOk()) << names;
    EXPECT_THAT(names.paths,
                ElementsAre(PathText("QUVSG_BMCI2C_DiagnosticService.Name=\"BMC I2C Test\","
                                     "SystemCreationClassName=\"\",SystemName=\"\","
                                     "CreationClassName=\"\"")));
}

TEST_P(MainJob, Run_ReturnsOneAndTheJobAsAnOutputArgument) {
    const Reply run = Run();
    EXPECT_TRUE(run.IsOk()) << run;
    EXPECT_THAT(run.values, ElementsAre("1"));
    const Reply jobs = server.EnumerateInstanceNames(kJob);
    ASSERT_EQ(jobs.paths.size(), 1U);
    EXPECT_THAT(jobs.paths[0], StartsWith(PathText("QUVSG_BMCI2C_ConcreteJob.InstanceID=\""
                                                   "BMCI2C_Record:")));
    EXPECT_THAT(run.out, ElementsAre(Pair("Job", '"' + jobs.paths[0] + '"')));
}

TEST_P(MainJob, AfterTheRun_TheRecordTellsWhichBusHasFailed) {
    EXPECT_TRUE(Run().IsOk());
    const Reply records = server.EnumerateInstances(kRecord);
    EXPECT_TRUE(records.IsOk()) << records;
    ASSERT_EQ(records.instances.size(), 1U);
    const Object& record = records.instances[0];
    EXPECT_THAT(record["RecordData"],
                StartsWith("\"166-000-001 BMC I2C Test Passed: All I2C busses of this management "
                           "controller work.\n166-903-002 BMC I2C Test Failed: I2C bus 2 of this "
                           "management controller has failed.\nRecommendations:\n"));
    EXPECT_EQ(record["CompletionState"], "5");
    EXPECT_EQ(record["InstanceID"], server.EnumerateInstances(kJob).instances.at(0)["InstanceID"]);
}

TEST_P(MainJob, PropertyList_IsHonoured) {
    EXPECT_TRUE(Run().IsOk());
    const char* properties[] = {"recorddata", nullptr};
    const Reply records = server.EnumerateInstances(kRecord, properties);
    ASSERT_EQ(records.instances.size(), 1U);
    std::vector<std::string> names;
    for (const auto& [name, value] : records.instances[0].properties) names.push_back(name);
    EXPECT_THAT(names, ElementsAre("InstanceID", "RecordData"));
}

TEST_P(MainJob, NameInAnotherLetterCase_FailsWithAText) {
    const Reply run = server.InvokeMethod({kService, {{"Name", "bmc i2c test"}}}, "RunDiagnostic");
    EXPECT_EQ(ToText(run),
              "1: QUVSG_BMCI2C_DiagnosticService_Provider: invokeMethod RunDiagnostic failed: the "
              "provider reports a failure (status 130).");
    EXPECT_THAT(run.out, IsEmpty());
    EXPECT_THAT(run.values, IsEmpty());
}
