// Service, job and records: what a client sees before and after runs. The registry lives as long as
// the process, so the tests that need none to have run stand first.
#include <framework/Instance_Ptr.h>
#include <gmock/gmock.h>
#include <providers/QUVSG_BMCI2C_ConcreteJob_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticServiceRecord_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticService_Provider.h>
#include <test/Globals_BMCI2C_Test.h>

#include "Enumeration.h"
#include "ProviderFixture.h"

namespace {

using cimple::String;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

constexpr char kTime[] = R"([0-9]{14}\.[0-9]{6}[+-][0-9]{3})";

std::string Time(const char* name) { return std::string(name) + " = " + kTime; }

class RunProviders : public ProviderTest {
protected:
    Enumeration Records() { return Enumerate<QUVSG_BMCI2C_DiagnosticCompletionRecord>(records); }

    // Invokes RunDiagnostic on the service of that name; `job` and `returned` tell what it gave.
    int Run(const char* name) {
        const cimple::Instance_Ptr self(cimple::create<QUVSG_BMCI2C_DiagnosticService>());
        static_cast<QUVSG_BMCI2C_DiagnosticService*>(self.get())->Name = name;
        CIM_ConcreteJob* newJob = nullptr;
        const int status =
            service.RunDiagnostic(static_cast<QUVSG_BMCI2C_DiagnosticService*>(self.get()), nullptr,
                                  nullptr, nullptr, newJob, returned);
        job.reset(newJob);
        return status;
    }

    std::string JobId() {
        return static_cast<CIM_ConcreteJob*>(job.get())->InstanceID.value.c_str();
    }

    std::string EnumeratedJobId() {
        const Enumeration jobs = Enumerate<QUVSG_BMCI2C_ConcreteJob>(jobProvider);
        return static_cast<CIM_ConcreteJob*>(jobs.instances.at(0).get())->InstanceID.value.c_str();
    }

    QUVSG_BMCI2C_DiagnosticService_Provider service;
    QUVSG_BMCI2C_ConcreteJob_Provider jobProvider;
    QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider records;
    QUVSG_BMCI2C_DiagnosticServiceRecord_Provider serviceRecord;
    cimple::Instance_Ptr job;
    cimple::Property<std::uint32_t> returned;
};

}  // namespace

TEST_F(RunProviders, BeforeAnyRun_NoCompletionRecordAndServiceRecordWithoutData) {
    EXPECT_EQ(Records().status, 0);
    EXPECT_THAT(Records().instances, IsEmpty());
    const auto record = Enumerate<QUVSG_BMCI2C_DiagnosticServiceRecord>(serviceRecord).TheOne();
    EXPECT_THAT(record, Contains("RecordData = \"No Record Data\""));
}

TEST_F(RunProviders, BeforeAnyRun_JobIsCompletedAndKeepsItsId) {
    const Enumeration jobs = Enumerate<QUVSG_BMCI2C_ConcreteJob>(jobProvider);
    EXPECT_EQ(jobs.status, 0);
    const std::vector<std::string> expected = {
        R"(Caption = "QUVSG_BMCI2C_ConcreteJob")",
        R"(Description = "QUVSG_BMCI2C_ConcreteJob")",
        R"(ElementName = "QUVSG_BMCI2C_ConcreteJob")",
        Time("InstallDate"),
        R"(Name = "QUVSG_BMCI2C_ConcreteJob")",
        R"(OperationalStatus = \{2\})",
        R"(StatusDescriptions = \{"Status OK"\})",
        R"(Status = "OK")",
        R"(JobStatus = "Job Status OK")",
        Time("TimeSubmitted"),
        Time("ScheduledStartTime"),
        Time("StartTime"),
        R"(ElapsedTime = 00000000000000\.000000:000)",
        "JobRunTimes = 1",
        "RunDayOfWeek = 0",
        R"(RunStartInterval = 00000000000000\.000000:000)",
        "LocalOrUtcTime = 1",
        R"(Notify = "QUV")",
        R"(Owner = "QUV")",
        "Priority = 0",
        "PercentComplete = 100",
        "DeleteOnCompletion = false",
        "ErrorCode = 0",
        R"(ErrorDescription = "No Error Description")",
        "RecoveryAction = 0",
        R"(OtherRecoveryAction = "No Other Recovery Action")",
        R"(InstanceID = "BMCI2C_Record:[0-9]{1,3}")",
        "JobState = 7",
        R"(TimeOfLastStateChange = 00000000000000\.000000:000)",
    };
    const std::vector<std::string> lines = jobs.TheOne();
    ASSERT_EQ(lines.size(), expected.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_THAT(lines[i], testing::ContainsRegex("^" + expected[i] + "$"));
    }
    EXPECT_EQ(EnumeratedJobId(), EnumeratedJobId());
}

TEST_F(RunProviders, Service_IsOneEnabledInstanceNamedAsItsElement) {
    const Enumeration services = Enumerate<QUVSG_BMCI2C_DiagnosticService>(service);
    EXPECT_EQ(services.status, 0);
    std::vector<std::string> lines = services.TheOne();
    ASSERT_EQ(lines.size(), 16U);
    EXPECT_THAT(lines[3], testing::ContainsRegex("^" + Time("InstallDate") + "$"));
    lines.erase(lines.begin() + 3);
    EXPECT_THAT(
        lines, ElementsAre("Caption = \"I2C Bus Test\"", "Description = \"Test I2C Busses\"",
                           "ElementName = \"BMC I2C Test\"", "Name = \"BMC I2C Test\"",
                           "OperationalStatus = {2}", "StatusDescriptions = {\"Status OK\"}",
                           "Status = \"OK\"", "EnabledState = 2", "OtherEnabledState = \"Enabled\"",
                           "RequestedState = 5", "EnabledDefault = 2",
                           "TimeOfLastStateChange = 00000000000000.000000:000", "SystemName = \"\"",
                           "StartMode = \"Automatic\"", "Started = true"));
    EXPECT_THAT(FakeTraceSink::lines, IsEmpty());
}

TEST_F(RunProviders, InstallDate_IsTheSameInEveryEnumeration) {
    EXPECT_EQ(Enumerate<QUVSG_BMCI2C_DiagnosticService>(service).TheOne(),
              Enumerate<QUVSG_BMCI2C_DiagnosticService>(service).TheOne());
}

TEST_F(RunProviders, UnknownName_FailsWithoutJobAndLeavesTheReturnValue) {
    for (const char* name : {"bmc i2c test", "", "BMC I2C Test "}) {
        FakeTraceSink::lines.clear();
        EXPECT_EQ(Run(name), 130);
        EXPECT_EQ(job, nullptr);
        EXPECT_EQ(returned.null, 1);
        EXPECT_THAT(FakeTraceSink::lines,
                    ElementsAre("---QUVSG_BMCI2C_DiagnosticService_Provider::RunDiagnostic\n"));
    }
    EXPECT_THAT(FakeServiceProcessor::Requests(), IsEmpty());
}

TEST_F(RunProviders, Run_ReturnsOneAndAJobWithTheNewId) {
    Answer({0, 0});
    EXPECT_EQ(Run("BMC I2C Test"), 0);
    EXPECT_EQ(returned.value, 1U);
    EXPECT_EQ(returned.null, 0);
    EXPECT_THAT(FakeTraceSink::lines,
                ElementsAre("---QUVSG_BMCI2C_DiagnosticService_Provider::RunDiagnostic OK\n"));
    EXPECT_EQ(JobId(), EnumeratedJobId());
}

TEST_F(RunProviders, SecondRun_DrawsANewId) {
    Answer({0});
    Run("BMC I2C Test");
    const std::string first = JobId();
    Run("BMC I2C Test");
    EXPECT_NE(JobId(), first);  // two draws of the unseeded generator that differ
}

TEST_F(RunProviders, KillJob_IsUnsupportedAndLeavesTheJob) {
    const Enumeration jobs = Enumerate<QUVSG_BMCI2C_ConcreteJob>(jobProvider);
    const auto* self = static_cast<QUVSG_BMCI2C_ConcreteJob*>(jobs.instances.at(0).get());
    const std::vector<std::string> before = jobs.TheOne();
    const std::string id = EnumeratedJobId();
    cimple::Property<bool> deleteOnKill;
    deleteOnKill = true;
    EXPECT_EQ(jobProvider.KillJob(self, deleteOnKill, returned), 131);
    EXPECT_EQ(returned.null, 1);
    EXPECT_EQ(jobs.TheOne(), before);
    EXPECT_EQ(EnumeratedJobId(), id);
}

TEST_F(RunProviders, InstallDateOfTheJob_IsThatOfTheService) {
    EXPECT_THAT(Enumerate<QUVSG_BMCI2C_ConcreteJob>(jobProvider).TheOne(),
                Contains(Enumerate<QUVSG_BMCI2C_DiagnosticService>(service).TheOne().at(3)));
}

TEST_F(RunProviders, AfterARun_TheCompletionRecordTellsTheOutcome) {
    Answer({1});
    Run("BMC I2C Test");
    const Enumeration result = Records();
    EXPECT_EQ(result.status, 0);
    std::vector<std::string> lines = result.TheOne();
    ASSERT_EQ(lines.size(), 19U);
    EXPECT_THAT(lines[10], testing::ContainsRegex("^" + Time("CreationTimeStamp") + "$"));
    lines.erase(lines.begin() + 10);
    EXPECT_THAT(
        lines, ElementsAre(
                   "Caption = \"DiagnosticRecord\"", "Description = \"Diagnostics results record\"",
                   "ElementName = \"Result for BMC I2C Test\"", "RecordFormat = \"\"",
                   "RecordData = \"166-901-001 Failed: bus 0.\"", "Locale = \"en\"",
                   "InstanceID = \"" + JobId() + "\"", "ServiceName = \"BMC I2C Test\"",
                   "ManagedElementName = \"I2C Bus\"", "RecordType = 2", "ErrorCount = {0}",
                   "LoopsFailed = 0", "LoopsPassed = 0", "CompletionState = 5",
                   "OtherCompletionStateDescription = \"No other Completion State Description\"",
                   "OverallResult = true", "ResultArray = {}", "LogArray = {}"));
    EXPECT_THAT(FakeTraceSink::lines,
                testing::Not(Contains(testing::HasSubstr("Record_Provider"))));
}

TEST_F(RunProviders, RecordKeptTwice_YieldsTwoEqualInstances) {
    FakeServiceProcessor::nodeCount = 2;
    Answer({0});
    FakeServiceProcessor::Script(1, 0x09, {.length = 1});
    Run("BMC I2C Test");
    const Enumeration result = Records();
    ASSERT_EQ(result.instances.size(), 2U);
    EXPECT_EQ(AssignedFeatures(*result.instances[0]), AssignedFeatures(*result.instances[1]));
    EXPECT_THAT(AssignedFeatures(*result.instances[0]),
                Contains("RecordData = \"166-000-001 Passed: all busses work."
                         "166-801-002 Aborted: bad length.\""));
}

TEST_F(RunProviders, ServiceRecord_HasTheDataOfTheLastRecord) {
    Answer({0});
    Run("BMC I2C Test");
    std::vector<std::string> lines =
        Enumerate<QUVSG_BMCI2C_DiagnosticServiceRecord>(serviceRecord).TheOne();
    ASSERT_EQ(lines.size(), 16U);
    EXPECT_THAT(lines[12], testing::ContainsRegex("^" + Time("CreationTimeStamp") + "$"));
    lines.erase(lines.begin() + 12);
    EXPECT_THAT(
        lines,
        ElementsAre("Caption = \"QUVSG_BMCI2C_DiagnosticServiceRecord\"",
                    "Description = \"QUVSG_BMCI2C_DiagnosticServiceRecord\"",
                    "ElementName = \"QUVSG_BMCI2C_DiagnosticServiceRecord\"",
                    "RecordFormat = \"No Record Format\"",
                    "RecordData = \"166-000-001 Passed: all busses work.\"",
                    "Locale = \"en_US_LINUX\"",
                    "InstanceID = \"QUV : QUVSG_BMCI2C_DiagnosticServiceRecord\"",
                    "ServiceName = \"BMC I2C Test\"", "ManagedElementName = \"BMC I2C Bus\"",
                    "ExpirationDate = 00000000000000.000000:000", "RecordType = 12",
                    "OtherRecordTypeDescription = \"No Other Record Type Description\"",
                    "ErrorCode = {\"No Error Code\"}", "LoopsFailed = 0", "LoopsPassed = 0"));
}

TEST_F(RunProviders, ServiceRecord_OfTwoKeptRecords_HasTheDataOfTheSecond) {
    DiagService& test = *Globals_BMCI2C_Test::Instance()->tests.at(0);
    test.ReplaceRecords({});
    for (const char* data : {"first", "second"}) {
        auto* record = new BMCI2C_Test_DiagnosticRecord("I2C Bus");
        record->RecordData = data;
        test.AppendRecord(record);
    }
    EXPECT_THAT(Enumerate<QUVSG_BMCI2C_DiagnosticServiceRecord>(serviceRecord).TheOne(),
                Contains("RecordData = \"second\""));
}

TEST_F(RunProviders, GetTimeStamp_OfTheUnsetTime_IsNoPointInTime) {
    EXPECT_FALSE(jobProvider.GetTimeStamp());
    EXPECT_FALSE(serviceRecord.GetTimeStamp());
}
