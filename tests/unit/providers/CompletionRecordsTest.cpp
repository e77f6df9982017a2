// How kept records become instances.
#include <framework/Instance_Ptr.h>
#include <gmock/gmock.h>
#include <providers/QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider.h>
#include <test/Globals_BMCI2C_Test.h>

#include <stdexcept>
#include <utility>

#include "Enumeration.h"
#include "ProviderFixture.h"

namespace {

using Provider = QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider;
using Lines = std::vector<std::string>;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

// A record of another test, whose state is none of the I2C bus test's.
class OtherRecord : public DiagnosticRecord {
public:
    using DiagnosticRecord::DiagnosticRecord;
    std::int32_t GetCompletionState() const override { return 70000; }
};

class NamelessTest : public DiagService {
public:
    std::int32_t RunDiagnostic(cimple::String) override { return 0; }
    cimple::String GetCaption() const override { return "caption"; }
    cimple::String GetDescription() const override { return "description"; }
    cimple::String GetElementName() const override { return ""; }
};

// The registry with a test of no name in the place of its own, while a check lasts.
class CompletionRecords : public ProviderTest {
protected:
    CompletionRecords() { std::swap(Registered(), otherTests); }
    ~CompletionRecords() override { std::swap(Registered(), otherTests); }

    static std::vector<DiagService*>& Registered() {
        return Globals_BMCI2C_Test::Instance()->tests;
    }

    BMCI2C_Test_DiagnosticRecord& Keep(const std::string& data) {
        auto* record = new BMCI2C_Test_DiagnosticRecord("I2C Bus");
        record->RecordData = data;
        nameless.AppendRecord(record);
        return *record;
    }

    Enumeration Records() { return Enumerate<QUVSG_BMCI2C_DiagnosticCompletionRecord>(provider); }

    static Lines Built(const DiagnosticRecord& record, const cimple::Array<bool>& results = {}) {
        const cimple::Instance_Ptr instance(Provider::BuildRecord(record, 7, "name", results, {}));
        return AssignedFeatures(*instance);
    }

    NamelessTest nameless;
    Provider provider;

private:
    std::vector<DiagService*> otherTests = {&nameless};
};

std::string LineOf(const Lines& lines, const std::string& name) {
    for (const std::string& line : lines) {
        if (line.starts_with(name + " = ")) return line;
    }
    return "no " + name;
}

}  // namespace

TEST_F(CompletionRecords, NoTestRegistered_EnumerationIsEmpty) {
    Keep("text");
    Registered().clear();
    EXPECT_EQ(Records().status, 0);
    EXPECT_THAT(Records().instances, IsEmpty());
}

TEST_F(CompletionRecords, TestWithoutName_ElementNameEndsWithTheBlank) {
    Keep("text");
    const Lines lines = Records().TheOne();
    EXPECT_THAT(lines, Contains("ElementName = \"Result for \""));
    EXPECT_THAT(lines, Contains("ServiceName = \"\""));
}

TEST_F(CompletionRecords, SeveralTests_AreEnumeratedInTheOrderOfRegistration) {
    NamelessTest second;
    auto* record = new BMCI2C_Test_DiagnosticRecord("I2C Bus");
    record->RecordData = "third";
    second.AppendRecord(record);
    Registered().push_back(&second);
    Keep("first");
    Keep("second");
    Lines data;
    for (const cimple::Instance_Ptr& instance : Records().instances) {
        data.push_back(LineOf(AssignedFeatures(*instance), "RecordData"));
    }
    EXPECT_THAT(data, ElementsAre("RecordData = \"first\"", "RecordData = \"second\"",
                                  "RecordData = \"third\""));
}

TEST_F(CompletionRecords, TwoRecords_ShareTheInstanceIdAndDifferInTheirData) {
    Keep("first");
    Keep("second");
    const Enumeration result = Records();
    ASSERT_EQ(result.instances.size(), 2U);
    const Lines first = AssignedFeatures(*result.instances[0]);
    const Lines second = AssignedFeatures(*result.instances[1]);
    EXPECT_THAT(LineOf(first, "InstanceID"), StartsWith("InstanceID = \"BMCI2C_Record:"));
    EXPECT_EQ(LineOf(first, "InstanceID"), LineOf(second, "InstanceID"));
    EXPECT_EQ(LineOf(first, "RecordData"), "RecordData = \"first\"");
    EXPECT_EQ(LineOf(second, "RecordData"), "RecordData = \"second\"");
}

TEST_F(CompletionRecords, ResultsAndLogLines_AreThoseOfTheRecord) {
    BMCI2C_Test_DiagnosticRecord& record = Keep("text");
    record.ResultArray = {true, false};
    record.LogArray = {"one", "two"};
    record.ResponseLog = {"not this"};
    const Lines lines = Records().TheOne();
    EXPECT_THAT(lines, Contains("OverallResult = false"));
    EXPECT_THAT(lines, Contains("ResultArray = {true, false}"));
    EXPECT_THAT(lines, Contains("LogArray = {\"one\", \"two\"}"));
}

TEST_F(CompletionRecords, RecordOfAnotherKind_HasNoResultsAndNoLogLines) {
    nameless.AppendRecord(new OtherRecord("Fans"));
    const Lines lines = Records().TheOne();
    EXPECT_THAT(lines, Contains("ManagedElementName = \"Fans\""));
    EXPECT_THAT(lines, Contains("RecordData = \"\""));
    EXPECT_THAT(lines, Contains("OverallResult = true"));
    EXPECT_THAT(lines, Contains("ResultArray = {}"));
    EXPECT_THAT(lines, Contains("LogArray = {}"));
}

TEST_F(CompletionRecords, CompletionState_IsWhatTheRecordSays_CutTo16Bits) {
    OtherRecord record("Fans");
    record.CompletionState = 2;
    EXPECT_THAT(Built(record), Contains("CompletionState = 4464"));  // 70000 modulo 65536
}

TEST_F(CompletionRecords, CreationTimeStamp_IsTheRecordsOwn) {
    OtherRecord record("Fans");
    record.CreationTimeStamp = *cimple::Datetime::from_text("20010203040506.000007+060");
    EXPECT_THAT(Built(record), Contains("CreationTimeStamp = 20010203040506.000007+060"));
}

TEST_F(CompletionRecords, PassedRecord_HasNoErrorCode) {
    OtherRecord record("Fans");
    record.ErrorCode = "E42";
    const Lines lines = Built(record);
    EXPECT_THAT(lines, Not(Contains(StartsWith("ErrorCode"))));
    EXPECT_THAT(lines, Contains("ErrorCount = {0}"));
    EXPECT_THAT(lines, Contains("LoopsFailed = 0"));
    EXPECT_THAT(lines, Contains("LoopsPassed = 0"));
}

TEST_F(CompletionRecords, FailedRecord_CarriesItsErrorCodeAndBothLoopCountersZero) {
    OtherRecord record("Fans");
    record.Passed = false;
    record.ErrorCode = "E42";
    const Lines lines = Built(record);
    EXPECT_THAT(lines, Contains("ErrorCode = {\"E42\"}"));
    EXPECT_THAT(lines, Contains("ErrorCount = {1}"));
    EXPECT_THAT(lines, Contains("LoopsFailed = 0"));
    EXPECT_THAT(lines, Contains("LoopsPassed = 0"));
}

TEST_F(CompletionRecords, OverallResult_IsTrueUnlessAnEntryIsFalse) {
    const OtherRecord record("Fans");
    const auto overall = [&](const cimple::Array<bool>& results) {
        return LineOf(Built(record, results), "OverallResult");
    };
    EXPECT_EQ(overall({}), "OverallResult = true");
    EXPECT_EQ(overall({true, true}), "OverallResult = true");
    EXPECT_EQ(overall({false, true}), "OverallResult = false");
    EXPECT_EQ(overall({true, false, true}), "OverallResult = false");
    EXPECT_EQ(overall({true, false}), "OverallResult = false");
}

// The leak checker watches the second instance.
TEST_F(CompletionRecords, DeliveryThrows_TheOtherInstancesAreFreedAndTheNextEnumerationWorks) {
    Keep("first");
    Keep("second");
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_DiagnosticCompletionRecord> handler(
        [](cimple::Instance* instance, int /*status*/, void* /*data*/) {
            const cimple::Instance_Ptr delivered(instance);
            throw std::runtime_error("the client has gone");
        },
        nullptr);
    EXPECT_THROW(provider.enum_instances(nullptr, &handler), std::runtime_error);
    EXPECT_EQ(Records().instances.size(), 2U);
}

TEST_F(CompletionRecords, PrintLog_PrintsEachResponse) {
    BMCI2C_Test_DiagnosticRecord record("I2C Bus");
    record.ResponseLog = {"one", "two"};
    record.LogArray = {"not this"};
    testing::internal::CaptureStdout();
    Provider::PrintLog(&record);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "\nIn QUVSG_BMCI2C_DiagnosticCompletionRecord, the 0 item of  LogArray is : one"
              "\nIn QUVSG_BMCI2C_DiagnosticCompletionRecord, the 1 item of  LogArray is : two");
}
