#include <gmock/gmock.h>

#include <boost/lexical_cast.hpp>
#include <filesystem>
#include <stdexcept>

#include "EngineFixture.h"

using engine::kStatus;
using engine::RecordView;
using ::testing::ElementsAre;

namespace {

// The run with one controller; several controllers have a file of their own.
class RunDiagnostic : public engine::EngineTest {
protected:
    std::string ResultText() { return OnlyRecord().RecordData; }
    int ResultState() { return OnlyRecord().CompletionState; }
};

constexpr char kUnsupported7001[] =
    "166-899-001 BMCI2C Bus Test Aborted: The machine with MT [7001] is not supported by BMCI2C "
    "Bus Test.";

}  // namespace

TEST_F(RunDiagnostic, Identity_OfOrdinaryControllers) {
    EXPECT_STREQ(Test().GetCaption().c_str(), "I2C Bus Test");
    EXPECT_STREQ(Test().GetDescription().c_str(), "Test I2C Busses");
    EXPECT_STREQ(Test().GetElementName().c_str(), "BMC I2C Test");
}

TEST_F(RunDiagnostic, Identity_OfOxcControllers) {
    FakeServiceProcessor::isOxc = true;
    EXPECT_STREQ(Test().GetElementName().c_str(), "OXC I2C Test");
}

TEST_F(RunDiagnostic, Identity_NoLibraryObjectForNode0_IsNotOxc) {
    FakeServiceProcessor::isOxc = true;
    FakeServiceProcessor::absent = {0};
    EXPECT_STREQ(Test().GetElementName().c_str(), "BMC I2C Test");
}

TEST_F(RunDiagnostic, NewTest_HasNoRecordsAndIsUntouched) {
    EXPECT_TRUE(Test().records.empty());
    EXPECT_EQ(Test().nodeCount, 0);
    EXPECT_EQ(Test().machineType, "");
    EXPECT_EQ(Test().testName, "");
    EXPECT_EQ(Test().machine, nullptr);
    EXPECT_EQ(Test().genericMachine, nullptr);
}

TEST_F(RunDiagnostic, NewTest_LeavesItsLibraryObjectAlive) {
    const std::size_t before = FakeServiceProcessor::ObjectsAlive();
    Test();
    EXPECT_EQ(FakeServiceProcessor::ObjectsAlive(), before + 1);
    EXPECT_THAT(FakeServiceProcessor::ObjectsAskedFor(), ElementsAre(0));
}

TEST_F(RunDiagnostic, EveryRun_FreesItsLibraryObjects) {
    FakeServiceProcessor::isOxc = true;
    AnswerStatus(0, {0x01});
    AnswerGeneration({0, 1});
    Test();
    const std::size_t before = FakeServiceProcessor::ObjectsAlive();
    Run();
    EXPECT_EQ(FakeServiceProcessor::ObjectsAlive(), before);
}

TEST_F(RunDiagnostic, AnyOutcome_Returns0) {
    EXPECT_EQ(Test().RunDiagnostic("I2C Bus"), 0);
    AnswerStatus(0, {0xFF});
    EXPECT_EQ(Test().RunDiagnostic("I2C Bus"), 0);
    SetMachine("7001", "IBE9");
    EXPECT_EQ(Test().RunDiagnostic("I2C Bus"), 0);
}

TEST_F(RunDiagnostic, TestName_NamesTheRecord) {
    AnswerStatus(0, {0});
    Test().RunDiagnostic("Another name");
    EXPECT_EQ(Test().testName, "Another name");
    EXPECT_EQ(OnlyRecord().Name, "Another name");
}

TEST_F(RunDiagnostic, UnsupportedMachine_KeepsOneRecordAndSendsNothing) {
    SetMachine("7001", "IBE9");
    Run();
    EXPECT_THAT(Records(), ElementsAre(RecordView{"I2C Bus", kUnsupported7001, 6}));
    EXPECT_TRUE(FakeServiceProcessor::Requests().empty());
}

TEST_F(RunDiagnostic, CatalogMissing_MachineIsUnsupported) {
    SetMachine("7001", "IBE1");
    std::filesystem::remove(CatalogPath());
    Run();
    EXPECT_THAT(Records(), ElementsAre(RecordView{"I2C Bus", kUnsupported7001, 6}));
    EXPECT_TRUE(FakeServiceProcessor::Requests().empty());
}

TEST_F(RunDiagnostic, MachineTypeEmpty_KeepsTwoRecords) {
    SetMachine("", "IBE1");
    Run();
    EXPECT_THAT(Records(),
                ElementsAre(RecordView{"I2C Bus", "", 6},
                            RecordView{"I2C Bus",
                                       "166-899-001 BMCI2C Bus Test Aborted: The machine with MT "
                                       "[] is not supported by BMCI2C Bus Test.",
                                       6}));
    EXPECT_TRUE(FakeServiceProcessor::Requests().empty());
}

TEST_F(RunDiagnostic, MachineTypeEmptyLater_BiosIdListed_PassDropsItsRecord) {
    AnswerStatus(0, {0});
    Run();
    SetMachine("", "7000");
    Run();
    EXPECT_EQ(ResultText(), "166-000-001 PASS: All busses work.");
}

TEST_F(RunDiagnostic, MachineTypeEmptyLater_BadLength_KeepsBothRecords) {
    AnswerStatus(0, {0});
    Run();
    SetMachine("", "7000");
    FakeServiceProcessor::Script(0, kStatus, {.length = 1});
    Run();
    EXPECT_THAT(
        Records(),
        ElementsAre(RecordView{"I2C Bus", "166-102-001 STOP: The machine type is empty.", 6},
                    RecordView{"I2C Bus",
                               "166-801-001 STOP: The answer is too short.\nRecommendations:\n\n"
                               "Reset the controller.",
                               6}));
}

TEST_F(RunDiagnostic, ZeroNodes_KeepsNoRecord) {
    FakeServiceProcessor::nodeCount = 0;
    Run();
    EXPECT_TRUE(Records().empty());
    EXPECT_TRUE(FakeServiceProcessor::Requests().empty());
}

TEST_F(RunDiagnostic, NoLibraryObjectForNode0_CountsZeroNodes) {
    FakeServiceProcessor::absent = {0};
    Run();
    EXPECT_TRUE(Records().empty());
    EXPECT_TRUE(FakeServiceProcessor::Requests().empty());
}

TEST_F(RunDiagnostic, ZeroNodes_RecordsOfTheFormerRunAreGone) {
    AnswerStatus(0, {0});
    Run();
    FakeServiceProcessor::nodeCount = 0;
    Run();
    EXPECT_TRUE(Records().empty());
}

TEST_F(RunDiagnostic, NoBusFailed_Passes) {
    AnswerStatus(0, {0, 0, 0});
    Run();
    EXPECT_EQ(ResultText(), "166-000-001 PASS: All busses work.");
    EXPECT_EQ(ResultState(), 2);
}

TEST_F(RunDiagnostic, Pass_FillsTheRecord) {
    AnswerStatus(0, {0, 0, 0});
    Run();
    const BMCI2C_Test_DiagnosticRecord& record = OnlyRecord();
    EXPECT_TRUE(record.Passed);
    EXPECT_TRUE(record.CommandSent);
    EXPECT_TRUE(record.ResponseReceived);
    EXPECT_TRUE(record.CompletionCodeOk);
    EXPECT_EQ(record.ResponseLength, 4);
    ASSERT_EQ(record.ResponseLog.size(), 1u);
    EXPECT_STREQ(record.ResponseLog[0].c_str(),
                 "Response length is : 4 Including completion code, received response data is : "
                 "01 20 3a 00 09 00 00 00 00 00 00 00 00 ");
}

TEST_F(RunDiagnostic, LowestBitOfFirstByte_IsBus901) {
    AnswerStatus(0, {0x01, 0, 0});
    Run();
    EXPECT_EQ(ResultText(),
              "166-901-001 FAULT: Bus 0 failed.\nRecommendations:\n\nReseat the planar.\nReplace "
              "the planar.");
    EXPECT_EQ(ResultState(), 5);
}

TEST_F(RunDiagnostic, HighestBitOfSecondByte_IsBus916) {
    AnswerStatus(0, {0, 0x80, 0});
    Run();
    EXPECT_EQ(ResultText(), "166-916-001 FAULT: Bus 15 failed.");
    EXPECT_EQ(ResultState(), 5);
}

TEST_F(RunDiagnostic, SeveralBussesFailed_EachHasItsMessage) {
    AnswerStatus(0, {0x40, 0x80});
    Run();
    EXPECT_EQ(ResultText(),
              "166-907-001 FAULT: There is no text: message num: 907\n"
              "166-916-001 FAULT: Bus 15 failed.");
}

TEST_F(RunDiagnostic, BusFailed_PassedFlagStaysSet) {
    AnswerStatus(0, {0x01});
    Run();
    EXPECT_TRUE(OnlyRecord().Passed);
    EXPECT_EQ(OnlyRecord().ErrorCode, "");
}

TEST_F(RunDiagnostic, BusFailed_NoGenericEntry_StateIs5WithoutText) {
    WriteCatalog({{.types = {"7000"}}});
    AnswerStatus(0, {0x01});
    Run();
    EXPECT_EQ(ResultText(), "");
    EXPECT_EQ(ResultState(), 5);
}

TEST_F(RunDiagnostic, OxcV1_TopBitsOfFirstByte_AreIgnored) {
    FakeServiceProcessor::isOxc = true;
    AnswerStatus(0, {0xC0});
    AnswerGeneration({0, 0});
    Run();
    EXPECT_EQ(ResultText(), "166-000-001 OXC PASS: The OXC works.");
    EXPECT_EQ(ResultState(), 2);
}

TEST_F(RunDiagnostic, OxcV1_OtherBits_AreNumberedAsElsewhere) {
    FakeServiceProcessor::isOxc = true;
    AnswerStatus(0, {0xE0, 0x81});
    AnswerGeneration({0, 0});
    Run();
    EXPECT_EQ(ResultText(),
              "166-906-001 OXC FAULT: The OXC has no text: message num: 906\n"
              "166-909-001 OXC FAULT: The OXC has no text: message num: 909\n"
              "166-916-001 OXC FAULT: The OXC has no text: message num: 916");
}

TEST_F(RunDiagnostic, OxcV2_SecondByte_IsIgnored) {
    FakeServiceProcessor::isOxc = true;
    AnswerStatus(0, {0, 0xFF});
    AnswerGeneration({0, 1});
    Run();
    EXPECT_EQ(ResultText(), "166-000-001 OXC PASS: The OXC works.");
    EXPECT_EQ(ResultState(), 2);
}

TEST_F(RunDiagnostic, OxcV2_AllBitsOfFirstByte_Count) {
    FakeServiceProcessor::isOxc = true;
    AnswerStatus(0, {0x80});
    AnswerGeneration({0, 1});
    Run();
    EXPECT_EQ(ResultText(), "166-908-001 OXC FAULT: The OXC has no text: message num: 908");
}

TEST_F(RunDiagnostic, OxcV2_IgnoredSecondByte_DoesNotAdvanceTheBusNumber) {
    FakeServiceProcessor::isOxc = true;
    AnswerStatus(0, {0, 0xFF, 0x01});
    AnswerGeneration({0, 1});
    Run();
    EXPECT_EQ(ResultText(), "166-909-001 OXC FAULT: The OXC has no text: message num: 909");
}

TEST_F(RunDiagnostic, OxcV2_ZeroSecondByte_AdvancesTheBusNumber) {
    FakeServiceProcessor::isOxc = true;
    AnswerStatus(0, {0, 0, 0x01});
    AnswerGeneration({0, 1});
    Run();
    EXPECT_EQ(ResultText(), "166-917-001 OXC FAULT: The OXC has no text: message num: 917");
}

TEST_F(RunDiagnostic, SendFails_KeepsNoRecord) {
    Run();
    EXPECT_TRUE(Records().empty());
    EXPECT_EQ(FakeServiceProcessor::Requests().size(), 1u);
    EXPECT_TRUE(FakeSystem::pauses.empty());
}

TEST_F(RunDiagnostic, LengthOne_EndsWithMessage801) {
    FakeServiceProcessor::Script(0, kStatus, {.length = 1});
    Run();
    EXPECT_EQ(ResultText(),
              "166-801-001 STOP: The answer is too short.\nRecommendations:\n\nReset the "
              "controller.");
    EXPECT_EQ(ResultState(), 6);
    EXPECT_TRUE(OnlyRecord().CommandSent);
    EXPECT_FALSE(OnlyRecord().ResponseReceived);
    EXPECT_EQ(OnlyRecord().ResponseLength, 1);
}

TEST_F(RunDiagnostic, CompletionCodeC1_EndsWithItsMessage) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xC1});
    Run();
    EXPECT_EQ(ResultText(), "166-804-001 STOP: Code C1.");
    EXPECT_EQ(ResultState(), 6);
    EXPECT_TRUE(OnlyRecord().ResponseReceived);
    EXPECT_FALSE(OnlyRecord().CompletionCodeOk);
}

TEST_F(RunDiagnostic, BadCompletionCode_ReasonStandsInTheResponseLog) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xC1});
    Run();
    ASSERT_EQ(OnlyRecord().ResponseLog.size(), 2u);
    EXPECT_STREQ(OnlyRecord().ResponseLog[0].c_str(),
                 "Response length is : 2 Including completion code, received response data is : "
                 "01 20 3a 00 09 00 00 00 c1 00 00 ");
    EXPECT_STREQ(OnlyRecord().ResponseLog[1].c_str(),
                 "BMCI2C Bus Test fails with reason : Incorrect completion code.");
}

TEST_F(RunDiagnostic, BusyOnce_PausesFiveSecondsAndAsksAgain) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xFF});
    AnswerStatus(0, {0});
    Run();
    EXPECT_EQ(ResultText(), "166-000-001 PASS: All busses work.");
    EXPECT_THAT(FakeSystem::pauses, ElementsAre(5));
    const auto requests = FakeServiceProcessor::Requests();
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(requests[1].buffer, requests[0].buffer);
    EXPECT_EQ(requests[1].announcedLength, 250);
    EXPECT_EQ(requests[1].bufferSize, 256);
    EXPECT_TRUE(requests[1].waitForCompletion);
}

TEST_F(RunDiagnostic, BusyTwice_SecondAnswerIsJudgedAsCompletionCode) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xFF});
    Run();
    EXPECT_EQ(ResultText(), "166-802-001 STOP: The controller does not answer.");
    EXPECT_EQ(ResultState(), 6);
    EXPECT_THAT(FakeSystem::pauses, ElementsAre(5));
    EXPECT_EQ(FakeServiceProcessor::Requests().size(), 2u);
}

TEST_F(RunDiagnostic, BusyThenNoAnswer_CountsAsSendFailure) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xFF});
    FakeServiceProcessor::Script(0, kStatus, {.delivered = false});
    Run();
    EXPECT_TRUE(Records().empty());
}

TEST_F(RunDiagnostic, BusyThenNoLibraryObject_FirstAnswerIsJudged) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xFF});
    FakeSystem::onSleep = [] { FakeServiceProcessor::absent = {0}; };
    Run();
    EXPECT_EQ(ResultText(), "166-802-001 STOP: The controller does not answer.");
    EXPECT_EQ(FakeServiceProcessor::Requests().size(), 1u);
}

TEST_F(RunDiagnostic, BusyAnswerTooShort_IsAskedAgain) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xFF, .length = 1});
    AnswerStatus(0, {0});
    Run();
    EXPECT_EQ(ResultState(), 2);
    EXPECT_THAT(FakeSystem::pauses, ElementsAre(5));
}

TEST_F(RunDiagnostic, NextRun_ReplacesTheRecords) {
    AnswerStatus(0, {0x01});
    AnswerStatus(0, {0});
    Run();
    EXPECT_EQ(ResultState(), 5);
    Run();
    EXPECT_EQ(ResultText(), "166-000-001 PASS: All busses work.");
    EXPECT_EQ(ResultState(), 2);
}

TEST_F(RunDiagnostic, CatalogThrows_RunThrowsAndTheNextOneWorks) {
    WriteCatalogText(
        "<bmci2cmsg version=\"1\">"
        "<machine type=\"GENERIC_QUV\"></machine><machine type=\"7000\"></machine>"
        "<machine type=\"7100\"><property name=\"message\" index=\"0x1\"><value>x</value>"
        "</property></machine></bmci2cmsg>");
    AnswerStatus(0, {0});
    try {
        Run();
        FAIL() << "the number was accepted";
    } catch (const boost::bad_lexical_cast& error) {
        EXPECT_STREQ(error.what(),
                     "bad lexical cast: source type value could not be interpreted as target");
    }
    EXPECT_TRUE(Records().empty());
    Run();
    EXPECT_EQ(ResultText(), "166-000-001 : message num: 0");
    EXPECT_EQ(ResultState(), 2);
}

TEST_F(RunDiagnostic, TransportThrows_RunThrowsAndTheNextOneWorks) {
    AnswerStatus(0, {0});
    Test();
    const std::size_t before = FakeServiceProcessor::ObjectsAlive();
    FakeServiceProcessor::onRequest = [] { throw std::runtime_error("the line is cut"); };
    EXPECT_THROW(Run(), std::runtime_error);
    EXPECT_EQ(FakeServiceProcessor::ObjectsAlive(), before);
    EXPECT_TRUE(Records().empty());
    FakeServiceProcessor::onRequest = nullptr;
    Run();
    EXPECT_EQ(ResultState(), 2);
}
