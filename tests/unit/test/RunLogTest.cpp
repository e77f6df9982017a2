// The whole log of a run, line by line with severities, in order.
#include <initializer_list>

#include "EngineFixture.h"

using engine::kStatus;
using engine::Location;
using Lines = std::vector<std::string>;

namespace {

constexpr char kAsked[] = "3 Sending command data: 01 20 3a 00 09 00 00 00 00 00 00 00 00 00 00 ";
constexpr char kAskedGeneration[] =
    "3 Sending command data: 01 20 3a 00 c1 00 00 00 00 00 00 00 00 00 00 ";
constexpr char kAnswered[] = "3 isCmdComplete of sendIPMICommand() is : 1 fIsOXC: 0";
constexpr char kNotAnswered[] = "3 isCmdComplete of sendIPMICommand() is : 0 fIsOXC: 0";
constexpr char kOxcAnswered[] = "3 isCmdComplete of sendIPMICommand() is : 1 fIsOXC: 1";
constexpr char kNoBussesFailed[] = "3 BMCI2C: Received data from BMC:0 0 0";

Lines Join(std::initializer_list<Lines> parts) {
    Lines joined;
    for (const Lines& part : parts) {
        joined.insert(joined.end(), part.begin(), part.end());
    }
    return joined;
}

// The beginning of every run on a machine whose type can be read.
Lines SupportCheck() {
    return {"3 getMachineType() entered.", "3 getMachineType:  = ADDRESS", Location(515),
            Location(555), Location(617)};
}

Lines Beginning(int controllers) {
    return Join({SupportCheck(),
                 {"3 BMCI2C: Total number of BMC(s) found = " + std::to_string(controllers)}});
}

Lines MessageMade() {
    return {Location(624), Location(555), Location(617), Location(641), Location(708)};
}

Lines LinesOfFailedBus(const std::string& failuresSoFar) {
    return Join({MessageMade(), {"3 BMCI2C: Failure string: " + failuresSoFar}});
}

Lines End(const std::string& result) { return {"3 BMCI2C: Result " + result, Location(507)}; }

// `bytes`: the response from the completion code on.
std::string Response(const std::string& length, const std::string& bytes,
                     const std::string& command = "09") {
    return "3 Response length is : " + length +
           " Including completion code, received response data is : 01 20 3a 00 " + command +
           " 00 00 00 " + bytes;
}

class RunLog : public engine::EngineTest {
protected:
    Lines LogOfRun() {
        Run();
        return Log();
    }
};

}  // namespace

TEST_F(RunLog, Pass) {
    AnswerStatus(0, {0, 0, 0});
    EXPECT_EQ(LogOfRun(),
              Join({Beginning(1),
                    {kAsked, kAnswered, Response("4", "00 00 00 00 00 "), kNoBussesFailed,
                     Location(448), Location(448), Location(448), Location(448)},
                    MessageMade(),
                    End("166-000-001 PASS: All busses work.")}));
}

TEST_F(RunLog, BussesFailed) {
    AnswerStatus(0, {0x02, 0x80, 0xA5});
    const std::string bus1 =
        "166-902-001 FAULT: Bus 1 of a 7000 failed.\nRecommendations:\n\nCall service.";
    const std::string bus15 = bus1 + "\n166-916-001 FAULT: Bus 15 failed.";
    const auto unnamed = [](const std::string& number) {
        return "\n166-" + number + "-001 FAULT: There is no text: message num: " + number;
    };
    const std::string bus16 = bus15 + unnamed("917");
    const std::string bus18 = bus16 + unnamed("919");
    const std::string bus21 = bus18 + unnamed("922");
    const std::string bus23 = bus21 + unnamed("924");
    EXPECT_EQ(LogOfRun(),
              Join({Beginning(1),
                    {kAsked, kAnswered, Response("4", "00 02 80 a5 00 "),
                     "3 BMCI2C: Received data from BMC:2 128 165", Location(448), Location(452)},
                    LinesOfFailedBus(bus1),
                    {Location(448), Location(452)},
                    LinesOfFailedBus(bus15),
                    {Location(448), Location(452)},
                    LinesOfFailedBus(bus16),
                    LinesOfFailedBus(bus18),
                    LinesOfFailedBus(bus21),
                    LinesOfFailedBus(bus23),
                    {Location(448)},
                    End(bus23)}));
}

TEST_F(RunLog, UnsupportedMachine) {
    SetMachine("7001", "IBE9");
    EXPECT_EQ(LogOfRun(),
              (Lines{"3 getMachineType() entered.", "3 getMachineType:  = ADDRESS", Location(515),
                     Location(555), "2 BMCI2C: Neither Machine type nor Bios ID is supported.",
                     Location(617),
                     "2 166-899-001 BMCI2C Bus Test Aborted: The machine with MT [7001] is not "
                     "supported by BMCI2C Bus Test."}));
}

TEST_F(RunLog, MachineTypeEmpty) {
    SetMachine("", "00");
    const Lines check = {Location(555), "2 BMCI2C: Fail to read BiosID!",
                         "2 BMCI2C: Neither Machine type nor Bios ID is supported.", Location(617)};
    EXPECT_EQ(LogOfRun(),
              Join({{"3 getMachineType() entered.", "3 getMachineType:  = ADDRESS",
                     "2 BMCI2C Bus Test fails with reason : Machine Type is Empty.", Location(624)},
                    check,
                    {Location(515)},
                    check,
                    {"2 166-899-001 BMCI2C Bus Test Aborted: The machine with MT [] is not "
                     "supported by BMCI2C Bus Test."}}));
}

TEST_F(RunLog, ZeroNodes_ResultIsEmpty) {
    FakeServiceProcessor::nodeCount = 0;
    EXPECT_EQ(LogOfRun(), Join({Beginning(0), End("")}));
}

TEST_F(RunLog, NoLibraryObjectForNode0) {
    FakeServiceProcessor::absent = {0};
    EXPECT_EQ(LogOfRun(), Join({Beginning(0), End("")}));
}

TEST_F(RunLog, BusyOnce_SecondRequestIsNotLogged) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xFF});
    AnswerStatus(0, {0});
    EXPECT_EQ(LogOfRun(), Join({Beginning(1),
                                {kAsked, kAnswered, Response("2", "00 00 00 "), kNoBussesFailed,
                                 Location(448), Location(448)},
                                MessageMade(),
                                End("166-000-001 PASS: All busses work.")}));
}

TEST_F(RunLog, BusyTwice) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xFF});
    EXPECT_EQ(LogOfRun(), Join({Beginning(1),
                                {kAsked, kAnswered, Response("2", "ff 00 00 "),
                                 "2 BMCI2C Bus Test fails with reason : Incorrect completion code.",
                                 Location(725)},
                                MessageMade()}));
}

TEST_F(RunLog, SendFailure) {
    EXPECT_EQ(LogOfRun(), Join({Beginning(1),
                                {kAsked, kNotAnswered},
                                MessageMade(),
                                End("166-802-001 STOP: The controller does not answer.")}));
}

TEST_F(RunLog, BadLength) {
    FakeServiceProcessor::Script(0, kStatus, {.length = 1});
    EXPECT_EQ(LogOfRun(),
              Join({Beginning(1),
                    {kAsked, kAnswered, Response("1", "00 00 "),
                     "2 BMCI2C Bus Test fails with reason : Incorrect IPMI response length."},
                    MessageMade()}));
}

TEST_F(RunLog, BadCompletionCode) {
    FakeServiceProcessor::Script(0, kStatus, {.completionCode = 0xC1});
    EXPECT_EQ(LogOfRun(), Join({Beginning(1),
                                {kAsked, kAnswered, Response("2", "c1 00 00 "),
                                 "2 BMCI2C Bus Test fails with reason : Incorrect completion code.",
                                 Location(725)},
                                MessageMade()}));
}

TEST_F(RunLog, OxcV1) {
    FakeServiceProcessor::isOxc = true;
    AnswerStatus(0, {0xC1, 0});
    AnswerGeneration({0, 0});
    const std::string result = "166-901-001 OXC FAULT: The OXC has no text: message num: 901";
    EXPECT_EQ(LogOfRun(), Join({Beginning(1),
                                {kAsked, kOxcAnswered, Response("3", "00 c1 00 00 "),
                                 "3 BMCI2C: Received data from BMC:193 0 0", kAskedGeneration,
                                 Response("3", "00 00 00 00 ", "c1"), "3 BMCI2C: OXC V1 detected",
                                 Location(448), Location(452)},
                                LinesOfFailedBus(result),
                                {Location(448), Location(448)},
                                End(result)}));
}

TEST_F(RunLog, OxcV2) {
    FakeServiceProcessor::isOxc = true;
    AnswerStatus(0, {0, 0x10});
    AnswerGeneration({0, 1});
    EXPECT_EQ(LogOfRun(), Join({Beginning(1),
                                {kAsked, kOxcAnswered, Response("3", "00 00 10 00 "),
                                 "3 BMCI2C: Received data from BMC:0 16 0", kAskedGeneration,
                                 Response("3", "00 00 01 00 ", "c1"), "3 BMCI2C: OXC V2 detected",
                                 Location(448), Location(448), Location(452), Location(448)},
                                MessageMade(),
                                End("166-000-001 OXC PASS: The OXC works.")}));
}

TEST_F(RunLog, ControllersFailDifferently) {
    FakeServiceProcessor::nodeCount = 4;
    AnswerStatus(0, {0, 0x80});
    AnswerStatus(2, {0});
    FakeServiceProcessor::Script(3, kStatus, {.completionCode = 0xD5});
    EXPECT_EQ(LogOfRun(), Join({Beginning(4),
                                {kAsked, kAnswered, Response("3", "00 00 80 00 "),
                                 "3 BMCI2C: Received data from BMC:0 128 0", Location(448),
                                 Location(448), Location(452)},
                                LinesOfFailedBus("166-916-001 FAULT: Bus 15 failed."),
                                {Location(448), kAsked, kNotAnswered},
                                MessageMade(),
                                {kAsked, kAnswered, Response("2", "00 00 00 "), kNoBussesFailed,
                                 Location(448), Location(448)},
                                MessageMade(),
                                {kAsked, kAnswered, Response("2", "d5 00 00 "),
                                 "2 BMCI2C Bus Test fails with reason : Incorrect completion code.",
                                 Location(725)},
                                MessageMade()}));
}

TEST_F(RunLog, SendFailureThenPass_ResultHoldsBothTexts) {
    FakeServiceProcessor::nodeCount = 2;
    AnswerStatus(1, {0});
    EXPECT_EQ(LogOfRun(), Join({Beginning(2),
                                {kAsked, kNotAnswered},
                                MessageMade(),
                                {kAsked, kAnswered, Response("2", "00 00 00 "), kNoBussesFailed,
                                 Location(448), Location(448)},
                                MessageMade(),
                                End("166-802-001 STOP: The controller does not answer.\n"
                                    "166-000-002 PASS: All busses work.")}));
}
