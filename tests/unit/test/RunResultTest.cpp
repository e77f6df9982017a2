#include <fakes/FakeDiagnostics.h>
#include <gmock/gmock.h>

#include <atomic>
#include <boost/lexical_cast/bad_lexical_cast.hpp>
#include <filesystem>
#include <stdexcept>

#include "EngineFixture.h"

using engine::kGeneration;
using engine::kStatus;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

constexpr auto kGood = BusState::Good;

class RunResultTest : public engine::EngineTest {
protected:
    RunResult RunIt(const RunOptions& options = {}) { return Test().Run("I2C Bus", options); }

    // Controllers 0 and 1 answer these; the run's verdict.
    Verdict VerdictOf(const ScriptedAnswer& first, const ScriptedAnswer& second) {
        FakeServiceProcessor::nodeCount = 2;
        FakeServiceProcessor::Script(0, kStatus, first);
        FakeServiceProcessor::Script(1, kStatus, second);
        return RunIt().verdict;
    }

    ControllerResult Only(const RunResult& result) {
        EXPECT_EQ(result.controllers.size(), 1u);
        return result.controllers.front();
    }
};

const ScriptedAnswer kPasses = {.data = {0, 0}};
const ScriptedAnswer kFails = {.data = {1}};
const ScriptedAnswer kSilent = {.delivered = false};
const ScriptedAnswer kRefuses = {.completionCode = 0xC1};
const ScriptedAnswer kShort = {.data = {0}, .length = 1};

std::vector<unsigned int> NumbersOf(const ControllerResult& controller, BusState state) {
    std::vector<unsigned int> numbers;
    for (const Bus& bus : controller.busses) {
        if (bus.state == state) numbers.push_back(bus.number);
    }
    return numbers;
}

std::vector<std::string> RunLines() {
    std::vector<std::string> lines;
    for (const LogLine& line : FakeDiagnostics::Lines()) {
        if (line.text.starts_with("Run: "))
            lines.push_back(std::to_string(line.severity) + " " + line.text);
    }
    return lines;
}

class Recorder : public RunObserver {
public:
    void OnController(int node, int count, const std::string& address) override {
        calls.push_back(std::to_string(node) + "/" + std::to_string(count) + " " + address);
    }
    void OnBusyPause(int node, std::chrono::seconds pause) override {
        calls.push_back("pause " + std::to_string(node) + " " + std::to_string(pause.count()));
    }
    std::vector<std::string> calls;
};

}  // namespace

TEST_F(RunResultTest, Pass_TellsMachineControllerAndBusses) {
    AnswerStatus(0, {0, 0});
    const RunResult result = RunIt();
    EXPECT_EQ(result.verdict, Verdict::Passed);
    EXPECT_EQ(result.machine.type, "7000");
    EXPECT_EQ(result.machine.biosId, "IBE1");
    EXPECT_EQ(result.machine.oxc, false);
    EXPECT_EQ(result.machine.catalog, CatalogPath());
    EXPECT_TRUE(result.machine.supported);
    EXPECT_FALSE(result.machine.simulated);
    EXPECT_LE(result.begin, result.end);
    EXPECT_THAT(result.troubles, IsEmpty());
    EXPECT_THAT(result.messages, IsEmpty());
    EXPECT_FALSE(result.endOfRecord);
    const ControllerResult controller = Only(result);
    EXPECT_EQ(controller.node, 0);
    EXPECT_EQ(controller.address, "scripted 0");
    EXPECT_EQ(controller.outcome, Outcome::Examined);
    EXPECT_EQ(controller.generation, Generation::None);
    EXPECT_EQ(controller.length, 3);
    EXPECT_EQ(controller.completionCode, 0);
    EXPECT_THAT(controller.data, ElementsAre(0, 0));
    EXPECT_EQ(controller.attempts, 1);
    EXPECT_EQ(controller.busses.size(), 16u);
    EXPECT_EQ(NumbersOf(controller, kGood).size(), 16u);
    EXPECT_EQ(controller.message->line, "166-000-001 PASS: All busses work.");
    EXPECT_THAT(controller.failedBusses, IsEmpty());
    EXPECT_FALSE(controller.trouble);
}

TEST_F(RunResultTest, FailedBusses_HaveTheirMessagesAndRecommendations) {
    AnswerStatus(0, {3});
    const ControllerResult controller = Only(RunIt());
    EXPECT_THAT(NumbersOf(controller, BusState::Failed), ElementsAre(0, 1));
    ASSERT_EQ(controller.failedBusses.size(), 2u);
    EXPECT_EQ(controller.failedBusses[0].bus, 0u);
    EXPECT_EQ(controller.failedBusses[0].message.line, "166-901-001 FAULT: Bus 0 failed.");
    EXPECT_THAT(controller.failedBusses[0].message.recommendations,
                ElementsAre("Reseat the planar.", "Replace the planar."));
    EXPECT_EQ(controller.failedBusses[1].message.line,
              "166-902-001 FAULT: Bus 1 of a 7000 failed.");
    EXPECT_FALSE(controller.message);
}

TEST_F(RunResultTest, BitBehindTheLastByte_IsAFailedBus) {
    FakeServiceProcessor::Script(0, kStatus, {.data = {0, 0x80}, .length = 2});
    const ControllerResult controller = Only(RunIt());
    EXPECT_THAT(NumbersOf(controller, BusState::Failed), ElementsAre(15));
    EXPECT_THAT(controller.data, ElementsAre(0, 0x80));
}

// The verdict does not depend on the order of the controllers.

TEST_F(RunResultTest, FailedThenSilent_IsFailed) {
    EXPECT_EQ(VerdictOf(kFails, kSilent), Verdict::Failed);
}
TEST_F(RunResultTest, SilentThenFailed_IsFailed) {
    EXPECT_EQ(VerdictOf(kSilent, kFails), Verdict::Failed);
}
TEST_F(RunResultTest, FailedThenRefusing_IsFailed) {
    EXPECT_EQ(VerdictOf(kFails, kRefuses), Verdict::Failed);
}
TEST_F(RunResultTest, FailedThenShort_IsFailed) {
    EXPECT_EQ(VerdictOf(kFails, kShort), Verdict::Failed);
}
TEST_F(RunResultTest, PassThenSilent_IsNotCompleted) {
    EXPECT_EQ(VerdictOf(kPasses, kSilent), Verdict::NotCompleted);
}
TEST_F(RunResultTest, SilentThenPass_IsNotCompleted) {
    EXPECT_EQ(VerdictOf(kSilent, kPasses), Verdict::NotCompleted);
}
TEST_F(RunResultTest, PassThenRefusing_IsNotCompleted) {
    EXPECT_EQ(VerdictOf(kPasses, kRefuses), Verdict::NotCompleted);
}
TEST_F(RunResultTest, PassThenPass_IsPassed) {
    EXPECT_EQ(VerdictOf(kPasses, kPasses), Verdict::Passed);
}

// A refusing or short-answering controller ends a CIM client's run before a failed bus is seen;
// askAll sees it.

TEST_F(RunResultTest, RefusingThenFailed_EndsEarly) {
    EXPECT_EQ(VerdictOf(kRefuses, kFails), Verdict::NotCompleted);
    EXPECT_EQ(FakeServiceProcessor::Requests().size(), 1u);
}

TEST_F(RunResultTest, RefusingThenFailed_AskAll_IsFailedAndKeepsTheRecordOfTheEarlyEnd) {
    FakeServiceProcessor::nodeCount = 3;
    FakeServiceProcessor::Script(0, kStatus, kRefuses);
    FakeServiceProcessor::Script(1, kStatus, kFails);
    FakeServiceProcessor::Script(2, kStatus, kShort);
    const RunResult result = RunIt({.askAll = true});
    EXPECT_EQ(result.verdict, Verdict::Failed);
    EXPECT_EQ(result.endOfRecord, 0);
    EXPECT_EQ(result.controllers[0].outcome, Outcome::Refused);
    EXPECT_EQ(result.controllers[1].failedBusses.front().message.line,
              "166-901-002 FAULT: Bus 0 failed.");
    EXPECT_EQ(result.controllers[2].outcome, Outcome::UnusableAnswer);
    EXPECT_EQ(Records(),
              (std::vector<engine::RecordView>{{"I2C Bus", "166-804-001 STOP: Code C1.", 6}}));
}

TEST_F(RunResultTest, ShortThenFailed_AskAll_IsFailed) {
    FakeServiceProcessor::nodeCount = 2;
    FakeServiceProcessor::Script(0, kStatus, kShort);
    FakeServiceProcessor::Script(1, kStatus, kFails);
    EXPECT_EQ(RunIt({.askAll = true}).verdict, Verdict::Failed);
}

TEST_F(RunResultTest, Refusal_NamesTheCodeAndWhoWasNotAsked) {
    FakeServiceProcessor::nodeCount = 2;
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xC1, .data = {7}});
    const RunResult result = RunIt();
    const ControllerResult& first = result.controllers[0];
    EXPECT_EQ(first.outcome, Outcome::Refused);
    EXPECT_EQ(first.completionCode, 0xC1);
    EXPECT_EQ(first.message->line, "166-804-001 STOP: Code C1.");
    EXPECT_EQ(first.trouble->code, "refused");
    EXPECT_EQ(first.trouble->text,
              "The controller refused the request with completion code 0xc1 (the controller does "
              "not know the command).");
    EXPECT_THAT(first.busses, IsEmpty());
    const ControllerResult& second = result.controllers[1];
    EXPECT_EQ(second.outcome, Outcome::NotAsked);
    EXPECT_EQ(second.attempts, 0);
    EXPECT_EQ(second.trouble->code, "not_asked");
    EXPECT_THAT(second.trouble->text, HasSubstr("the run ended at node 0"));
    EXPECT_EQ(result.endOfRecord, 0);
}

TEST_F(RunResultTest, ShortAnswer_TellsItsLength) {
    FakeServiceProcessor::Script(0, kStatus, kShort);
    const ControllerResult controller = Only(RunIt());
    EXPECT_EQ(controller.outcome, Outcome::UnusableAnswer);
    EXPECT_EQ(controller.length, 1);
    EXPECT_FALSE(controller.completionCode);
    EXPECT_EQ(controller.trouble->code, "unusable_answers");
    EXPECT_EQ(controller.message->line, "166-801-001 STOP: The answer is too short.");
    EXPECT_THAT(controller.message->recommendations, ElementsAre("Reset the controller."));
}

TEST_F(RunResultTest, Silence_HasTheTransportsReason) {
    const ControllerResult controller = Only(RunIt());
    EXPECT_EQ(controller.outcome, Outcome::NotDelivered);
    EXPECT_EQ(controller.trouble,
              (platform::Trouble{"no_answer", "The controller sleeps.", "Wake it."}));
    EXPECT_EQ(controller.attempts, 1);
    EXPECT_FALSE(controller.length);
    EXPECT_EQ(controller.message->line, "166-802-001 STOP: The controller does not answer.");
}

TEST_F(RunResultTest, AbsentController_IsNotPresent) {
    FakeServiceProcessor::nodeCount = 2;
    FakeServiceProcessor::absent = {1};
    AnswerStatus(0, {0});
    const RunResult result = RunIt();
    EXPECT_EQ(result.controllers[1].outcome, Outcome::NotDelivered);
    EXPECT_EQ(result.controllers[1].trouble->code, "not_present");
    EXPECT_EQ(result.controllers[1].attempts, 0);
    EXPECT_EQ(result.verdict, Verdict::NotCompleted);
}

TEST_F(RunResultTest, AbsentFirstController_LeavesTheOthersUnasked) {
    FakeServiceProcessor::nodeCount = 2;
    FakeServiceProcessor::absent = {0};
    const RunResult result = RunIt();
    EXPECT_EQ(result.controllers[0].outcome, Outcome::NotAsked);
    EXPECT_EQ(result.controllers[0].trouble->code, "not_present");
    EXPECT_EQ(result.controllers[1].trouble->code, "not_asked");
    EXPECT_EQ(result.verdict, Verdict::NotCompleted);
}

TEST_F(RunResultTest, NoController_IsToldAndNotCompleted) {
    FakeServiceProcessor::nodeCount = 0;
    const RunResult result = RunIt();
    EXPECT_EQ(result.verdict, Verdict::NotCompleted);
    ASSERT_EQ(result.troubles.size(), 1u);
    EXPECT_EQ(result.troubles.front().code, "no_device");
}

TEST_F(RunResultTest, BusyController_IsAskedTwice) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xFF});
    AnswerStatus(0, {0});
    const ControllerResult controller = Only(RunIt());
    EXPECT_EQ(controller.attempts, 2);
    EXPECT_EQ(controller.outcome, Outcome::Examined);
}

TEST_F(RunResultTest, EveryController_HasAShareAndSoHasEachGenerationQuery) {
    FakeServiceProcessor::nodeCount = 2;
    FakeServiceProcessor::isOxc = true;
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xFF});
    AnswerStatus(0, {0});
    AnswerStatus(1, {0});
    const std::atomic<bool> stop = false;
    RunIt({.stop = &stop});
    const std::vector<SPShare>& shares = FakeServiceProcessor::shares;
    // Status, status again, generation; status, generation.
    ASSERT_EQ(shares.size(), 5u);
    EXPECT_EQ(shares[0].begin, shares[1].begin);
    EXPECT_LT(shares[1].begin, shares[2].begin);
    EXPECT_LT(shares[2].begin, shares[3].begin);
    EXPECT_LT(shares[3].begin, shares[4].begin);
    for (const SPShare& share : shares) EXPECT_EQ(share.stop, &stop);
}

// The OXC family.

class OxcResult : public RunResultTest {
protected:
    OxcResult() { FakeServiceProcessor::isOxc = true; }

    ControllerResult With(const ScriptedAnswer& generation, std::vector<std::uint8_t> data) {
        FakeServiceProcessor::Script(0, kGeneration, generation);
        AnswerStatus(0, std::move(data));
        result = RunIt();
        return Only(result);
    }

    RunResult result;
};

TEST_F(OxcResult, FirstGeneration_HasSixBussesInTheFirstByte) {
    const ControllerResult controller = With({.data = {0, 0}}, {0xC1});
    EXPECT_EQ(controller.generation, Generation::First);
    EXPECT_THAT(NumbersOf(controller, BusState::Failed), ElementsAre(0));
    EXPECT_THAT(NumbersOf(controller, BusState::Good), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_THAT(NumbersOf(controller, BusState::Unjudged), IsEmpty());
    EXPECT_FALSE(controller.trouble);
}

TEST_F(OxcResult, FirstGenerationWithBits6And7_Passes) {
    With({.data = {0, 0}}, {0xC0});
    EXPECT_EQ(result.verdict, Verdict::Passed);
    EXPECT_EQ(result.machine.oxc, true);
}

TEST_F(OxcResult, SecondGeneration_HasNoBussesInTheSecondByte) {
    const ControllerResult controller = With({.data = {0, 1}}, {0xC0, 0xFF, 2});
    EXPECT_EQ(controller.generation, Generation::Second);
    EXPECT_THAT(NumbersOf(controller, BusState::Failed), ElementsAre(6, 7, 9));
    EXPECT_EQ(controller.busses.size(), 16u);
    EXPECT_TRUE(controller.hasUnusedByte);
    EXPECT_EQ(result.verdict, Verdict::Failed);
}

TEST_F(OxcResult, SecondGenerationWithZeroSecondByte_LeavesItsNumbersOut) {
    const ControllerResult controller = With({.data = {0, 1}}, {0, 0, 2});
    EXPECT_THAT(NumbersOf(controller, BusState::Failed), ElementsAre(17));
    EXPECT_EQ(controller.busses[8].number, 16u);
    EXPECT_FALSE(controller.hasUnusedByte);
}

TEST_F(OxcResult, StopDuringTheGenerationQuery_IsInterruptedBeforeTheScan) {
    AnswerStatus(0, {0, 0xFF});
    std::atomic<bool> stop = false;
    FakeServiceProcessor::onRequest = [&] {
        stop = FakeServiceProcessor::Requests().size() == 1;  // the next one is the query
    };
    const RunResult stopped = RunIt({.stop = &stop});
    EXPECT_EQ(stopped.verdict, Verdict::Interrupted);
    EXPECT_THAT(Only(stopped).failedBusses, IsEmpty());
    EXPECT_EQ(Only(stopped).trouble->code, "interrupted");
    EXPECT_THAT(Records(), IsEmpty());
}

class UnknownGeneration : public OxcResult, public ::testing::WithParamInterface<ScriptedAnswer> {};

TEST_P(UnknownGeneration, Bits6And7_AreUnjudged) {
    const ControllerResult controller = With(GetParam(), {0xC0, 0});
    EXPECT_EQ(controller.generation, Generation::Unknown);
    EXPECT_THAT(NumbersOf(controller, BusState::Unjudged), ElementsAre(6, 7));
    EXPECT_EQ(controller.trouble->code, "generation_unknown");
    EXPECT_EQ(result.verdict, Verdict::NotCompleted);
    EXPECT_EQ(Records().front().state, 2);
    EXPECT_EQ(Records().front().text, "166-000-001 OXC PASS: The OXC works.");
}

TEST_P(UnknownGeneration, WithoutTheseBits_Passes) {
    const ControllerResult controller = With(GetParam(), {0, 0});
    EXPECT_EQ(controller.generation, Generation::Unknown);
    EXPECT_FALSE(controller.trouble);
    EXPECT_EQ(result.verdict, Verdict::Passed);
}

TEST_P(UnknownGeneration, SecondByte_FailsAsRecordedAndTheDoubtIsTold) {
    const ControllerResult controller = With(GetParam(), {0, 1});
    EXPECT_THAT(NumbersOf(controller, BusState::Failed), ElementsAre(8));
    EXPECT_EQ(controller.trouble->code, "generation_unknown");
    EXPECT_EQ(result.verdict, Verdict::Failed);
}

INSTANTIATE_TEST_SUITE_P(Answers, UnknownGeneration, ::testing::Values(kSilent, kRefuses, kShort),
                         [](const auto& answer) {
                             if (!answer.param.delivered) return "Silent";
                             return answer.param.completionCode != 0 ? "Refused" : "Short";
                         });

TEST_F(RunResultTest, UnknownFamily_IsToldAndBits6And7Fail) {
    FakeServiceProcessor::familyTrouble = platform::Trouble{"no_answer", "It sleeps.", "Wake it."};
    AnswerStatus(0, {0xC0});
    const RunResult result = RunIt();
    EXPECT_EQ(result.machine.oxc, std::nullopt);
    ASSERT_EQ(result.troubles.size(), 1u);
    EXPECT_EQ(result.troubles.front().code, "family_unknown");
    EXPECT_THAT(result.troubles.front().text, HasSubstr("It sleeps."));
    EXPECT_EQ(result.troubles.front().advice, "Wake it.");
    EXPECT_EQ(result.verdict, Verdict::Failed);
}

TEST_F(RunResultTest, UnknownFamily_PassesWithoutDoubt) {
    FakeServiceProcessor::familyTrouble = platform::Trouble{"no_answer", "It sleeps.", "Wake it."};
    AnswerStatus(0, {0, 0});
    const RunResult result = RunIt();
    EXPECT_EQ(result.troubles.at(0).code, "family_unknown");
    EXPECT_EQ(result.verdict, Verdict::Passed);
}

TEST_F(RunResultTest, FirstControllerThatComesLater_LeavesTheFamilyUnknown) {
    FakeServiceProcessor::nodeCount = 0;
    FakeServiceProcessor::absent = {0};
    Test();
    FakeServiceProcessor::nodeCount = 1;
    FakeServiceProcessor::absent.clear();
    AnswerStatus(0, {0});
    const RunResult result = RunIt();
    EXPECT_EQ(result.machine.oxc, std::nullopt);
    EXPECT_EQ(result.troubles.at(0).code, "family_unknown");
}

TEST_F(RunResultTest, AnswerThatIsLongerThanTheBuffer_IsNotPassed) {
    FakeServiceProcessor::Script(0, kStatus, {.data = std::vector<std::uint8_t>(248)});
    const RunResult result = RunIt();
    EXPECT_EQ(Only(result).trouble->code, "answer_cut");
    EXPECT_EQ(result.verdict, Verdict::NotCompleted);
    FakeServiceProcessor::Script(0, kStatus, {.data = std::vector<std::uint8_t>(247)});
    EXPECT_EQ(RunIt().verdict, Verdict::Passed);
}

// Machine and catalog.

TEST_F(RunResultTest, IndexThatIsNotDecimal_ThrowsAndIsToldByLaterRuns) {
    WriteCatalogText(
        "<bmci2cmsg version=\"1.0\">\n<machine type=\"7000\">\n"
        "<property name=\"message\" index=\"0x10\"><value>text</value></property>\n"
        "</machine></bmci2cmsg>");
    EXPECT_THROW(RunIt(), boost::bad_lexical_cast);
    const RunResult result = RunIt();
    ASSERT_EQ(result.troubles.size(), 1u);
    EXPECT_EQ(result.troubles.front().code, "catalog_index");
    EXPECT_THAT(result.troubles.front().text, HasSubstr("line 3: the index '0x10' is not decimal"));
}

TEST_F(RunResultTest, ExceptionInARun_LeavesTheRecordOfTheControllersBefore) {
    FakeServiceProcessor::nodeCount = 2;
    AnswerStatus(0, {0});
    AnswerStatus(1, {3});
    FakeServiceProcessor::onObjectAskedFor = [](int node) {
        if (node == 1) throw std::runtime_error("no memory");
    };
    EXPECT_THROW(RunIt(), std::runtime_error);
    EXPECT_EQ(
        Records(),
        (std::vector<engine::RecordView>{{"I2C Bus", "166-000-001 PASS: All busses work.", 2}}));
}

TEST_F(RunResultTest, UnsupportedMachine_IsToldAndNobodyIsAsked) {
    SetMachine("0000", "X");
    const RunResult result = RunIt();
    EXPECT_FALSE(result.machine.supported);
    EXPECT_EQ(result.verdict, Verdict::NotCompleted);
    ASSERT_EQ(result.messages.size(), 1u);
    EXPECT_THAT(result.messages.front().line, HasSubstr("166-899-001"));
    ASSERT_EQ(result.troubles.size(), 1u);
    EXPECT_EQ(result.troubles.front().code, "machine_not_listed");
    EXPECT_EQ(Only(result).trouble->code, "not_asked");
}

TEST_F(RunResultTest, UnreadableMachineType_IsToldWithItsReason) {
    SetMachine("", "X");
    FakeDiagnostics::smbiosProblem = "SMBIOS cannot be read.";
    const RunResult result = RunIt();
    // Without a machine type the catalog is not read, so that the first record has no message.
    EXPECT_EQ(result.messages.size(), 1u);
    ASSERT_EQ(result.troubles.size(), 1u);
    EXPECT_EQ(result.troubles.front().code, "machine_unknown");
    EXPECT_THAT(result.troubles.front().text, HasSubstr("SMBIOS cannot be read."));
}

TEST_F(RunResultTest, CatalogWithoutGenericEntry_IsToldAndTheBussesAreJudged) {
    WriteCatalog({{.types = {"7000"}}});
    AnswerStatus(0, {1});
    const RunResult result = RunIt();
    ASSERT_EQ(result.troubles.size(), 1u);
    EXPECT_EQ(result.troubles.front().code, "catalog_generic_missing");
    EXPECT_THAT(result.troubles.front().text, HasSubstr(" has no entry GENERIC_QUV, "));
    EXPECT_EQ(result.verdict, Verdict::Failed);
    EXPECT_FALSE(Only(result).message);
}

TEST_F(RunResultTest, MissingCatalog_IsToldAtEachRun) {
    std::filesystem::remove(CatalogPath());
    for (int run = 0; run < 2; ++run) {
        const RunResult result = RunIt();
        ASSERT_EQ(result.troubles.size(), 1u);
        EXPECT_EQ(result.troubles.front().code, "catalog_missing");
        EXPECT_EQ(result.troubles.front().text,
                  "There is no message catalog " + CatalogPath() + ".");
    }
}

TEST_F(RunResultTest, FolderAsCatalog_IsUnreadable) {
    std::filesystem::remove(CatalogPath());
    std::filesystem::create_directory(CatalogPath());
    EXPECT_EQ(RunIt().troubles.at(0).code, "catalog_unreadable");
}

TEST_F(RunResultTest, CatalogThatEndsEarly_IsToldWithItsLine) {
    WriteCatalogText("<bmci2cmsg version=\"1.0\">\n<machine type=\"7000\">\n");
    const RunResult result = RunIt();
    ASSERT_EQ(result.troubles.size(), 1u);
    EXPECT_EQ(result.troubles.front().code, "catalog_syntax");
    EXPECT_THAT(result.troubles.front().text, HasSubstr(" is wrong in line 3: "));
}

// Who watches and stops a run.

TEST_F(RunResultTest, Observer_IsToldOfControllersAndPauses) {
    FakeServiceProcessor::nodeCount = 2;
    FakeServiceProcessor::Script(1, kStatus, {.completionCode = 0xFF});
    Recorder recorder;
    RunIt({.observer = &recorder});
    EXPECT_THAT(recorder.calls, ElementsAre("0/2 scripted 0", "1/2 scripted 1", "pause 1 5"));
}

TEST_F(RunResultTest, StopInTheBusyPause_IsInterruptedAndKeepsWhatIsKnown) {
    FakeServiceProcessor::nodeCount = 3;
    AnswerStatus(0, {1});
    FakeServiceProcessor::Script(1, kStatus, {.completionCode = 0xFF});
    std::atomic<bool> stop = false;
    FakeSystem::onSleep = [&] { stop = true; };
    const RunResult result = RunIt({.stop = &stop});
    EXPECT_EQ(result.verdict, Verdict::Interrupted);
    EXPECT_EQ(result.controllers[0].failedBusses.size(), 1u);
    EXPECT_EQ(result.controllers[1].trouble->code, "interrupted");
    EXPECT_EQ(result.controllers[2].trouble->code, "interrupted");
    EXPECT_EQ(Records().size(), 1u);
}

TEST_F(RunResultTest, StopBehindTheLastAnswer_ChangesNothing) {
    AnswerStatus(0, {0});
    std::atomic<bool> stop = false;
    FakeServiceProcessor::onRequest = [&] { stop = true; };
    EXPECT_EQ(RunIt({.stop = &stop}).verdict, Verdict::Passed);
}

TEST_F(RunResultTest, StopDuringASilentRequest_KeepsTheTransportsReason) {
    std::atomic<bool> stop = false;
    FakeServiceProcessor::onRequest = [&] { stop = true; };
    const RunResult result = RunIt({.stop = &stop});
    EXPECT_EQ(result.verdict, Verdict::Interrupted);
    EXPECT_EQ(Only(result).outcome, Outcome::NotDelivered);
    EXPECT_EQ(Only(result).trouble->code, "no_answer");
}

TEST_F(RunResultTest, StopInTheBusyPause_TellsThatTheControllerWasBusy) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xFF});
    std::atomic<bool> stop = false;
    FakeSystem::onSleep = [&] { stop = true; };
    const ControllerResult controller = Only(RunIt({.stop = &stop}));
    EXPECT_EQ(controller.outcome, Outcome::Refused);
    EXPECT_EQ(controller.completionCode, 0xFF);
    EXPECT_EQ(controller.attempts, 1);
}

// The log.

TEST_F(RunResultTest, Log_HasALineForEachFailedBusAndASummaryBehindTheTestsLines) {
    AnswerStatus(0, {3});
    RunIt();
    EXPECT_THAT(
        RunLines(),
        ElementsAre("2 Run: bus 0 of node 0 (scripted 0) has failed",
                    "2 Run: bus 1 of node 0 (scripted 0) has failed",
                    ::testing::MatchesRegex(
                        "2 Run: The I2C bus test of machine type '7000' ended: verdict failed, "
                        "1 of 1 controller examined, 2 failed busses, [0-9]+ ms.")));
    const auto lines = FakeDiagnostics::Lines();
    EXPECT_TRUE(lines[lines.size() - 3].text.starts_with("Run: "));
}

TEST_F(RunResultTest, Log_TellsTheNodeOfLinesAboutOne) {
    FakeServiceProcessor::nodeCount = 2;
    AnswerStatus(0, {0});
    AnswerStatus(1, {1});
    RunIt();
    const std::vector<LogLine> lines = FakeDiagnostics::Lines();
    const auto nodes = FakeDiagnostics::Nodes();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].text.starts_with("Run: bus")) {
            EXPECT_EQ(nodes[i], 1);
        } else if (lines[i].text.starts_with("Run: The") ||
                   lines[i].text.starts_with("getMachineType()")) {
            EXPECT_EQ(nodes[i], std::nullopt);
        } else if (lines[i].text.starts_with("Sending command data")) {
            EXPECT_TRUE(nodes[i].has_value());
        }
    }
}

TEST_F(RunResultTest, Log_OfAPassIsTrace) {
    AnswerStatus(0, {0});
    RunIt();
    EXPECT_THAT(RunLines(), ElementsAre(HasSubstr("3 Run: The I2C bus test of machine type '7000' "
                                                  "ended: verdict passed, 1 of 1 controller")));
}

TEST_F(RunResultTest, Log_OfASimulatedMachineWarnsAtEachRun) {
    FakeServiceProcessor::isSimulated = true;
    AnswerStatus(0, {0});
    RunIt();
    RunIt();
    EXPECT_THAT(FakeDiagnostics::Texts(NQUVZDX20::kLogWarning),
                ElementsAre(HasSubstr("simulated"), HasSubstr("simulated")));
}

TEST_F(RunResultTest, Log_OfARunThatThrows_TellsWhy) {
    FakeDiagnostics::machineTypeFailure = std::make_exception_ptr(std::runtime_error("no SMBIOS"));
    EXPECT_THROW(RunIt(), std::runtime_error);
    EXPECT_THAT(RunLines(), ElementsAre("2 Run: The I2C bus test ended with an error: no SMBIOS."));
}

TEST_F(RunResultTest, NameOf_IsWhatProgramsRead) {
    EXPECT_EQ(NameOf(Verdict::Passed), "passed");
    EXPECT_EQ(NameOf(Verdict::Failed), "failed");
    EXPECT_EQ(NameOf(Verdict::NotCompleted), "not_completed");
    EXPECT_EQ(NameOf(Verdict::Interrupted), "interrupted");
}
