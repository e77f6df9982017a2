#include <gmock/gmock.h>
#include <test/MessageNumbers.h>

#include <locale>

#include "EngineFixture.h"

using engine::Catalog;
using engine::Location;
using Lines = std::vector<std::string>;

namespace {

class ResultMessages : public engine::EngineTest {
protected:
    ResultMessages() { Prepare(); }

    std::string Message(int kind, unsigned short number) {
        return Test().GetMessageString(kind, number);
    }
};

// A host whose locale writes 1'234.
class GroupingLocale {
public:
    GroupingLocale() : former(std::locale::global({std::locale::classic(), new Apostrophes})) {}
    ~GroupingLocale() { std::locale::global(former); }
    GroupingLocale(const GroupingLocale&) = delete;
    GroupingLocale& operator=(const GroupingLocale&) = delete;

private:
    struct Apostrophes : std::numpunct<char> {
        char do_thousands_sep() const override { return '\''; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::locale former;
};

// For catalogs other than the sample.
class ResultMessagesOf : public engine::EngineTest {
protected:
    std::string Message(const Catalog& catalog, int kind, unsigned short number) {
        WriteCatalog(catalog);
        Prepare();
        return Test().GetMessageString(kind, number);
    }
};

}  // namespace

TEST_F(ResultMessages, FixedTexts_AreTheirOwn) {
    EXPECT_EQ(BMCI2C_Test_Impl::kUnableReadMT,
              "BMCI2C Bus Test fails with reason : Unable to read machine type from SMBIOS.");
    EXPECT_EQ(BMCI2C_Test_Impl::kMTEmpty,
              "BMCI2C Bus Test fails with reason : Machine Type is Empty.");
    EXPECT_EQ(BMCI2C_Test_Impl::kIncorrectRespLength,
              "BMCI2C Bus Test fails with reason : Incorrect IPMI response length.");
    EXPECT_EQ(BMCI2C_Test_Impl::kIncorrectCompletion,
              "BMCI2C Bus Test fails with reason : Incorrect completion code.");
    EXPECT_EQ(BMCI2C_Test_Impl::kSendIPMIFail,
              "BMCI2C Bus Test fails with reason : IPMI command failed to send successfully.");
    EXPECT_EQ(BMCI2C_Test_Impl::kBMCI2CPass, "BMCI2C Bus Test Passed!");
    EXPECT_EQ(BMCI2C_Test_Impl::kBMCI2CFail, "BMCI2C Bus Test Failed");
}

TEST_F(ResultMessages, MachineTypeFailures_HaveTheirNumbers) {
    EXPECT_EQ(Message(6, kMachineTypeUnreadable),
              "166-101-000 STOP: The machine type cannot be read.");
    EXPECT_EQ(Message(6, kMachineTypeEmpty), "166-102-000 STOP: The machine type is empty.");
}

TEST_F(ResultMessages, Pass_HasHeading201AndNoRecommendations) {
    EXPECT_EQ(Message(2, 0), "166-000-000 PASS: All busses work.");
    EXPECT_EQ(Message(2, 901), "166-901-000 PASS: Bus 0 failed.");
}

TEST_F(ResultMessages, BusFault_HasHeading206) {
    EXPECT_EQ(Message(5, 916), "166-916-000 FAULT: Bus 15 failed.");
}

TEST_F(ResultMessages, NotCompleted_HasHeading207) {
    EXPECT_EQ(Message(6, 802), "166-802-000 STOP: The controller does not answer.");
}

TEST_F(ResultMessages, OtherKind_HasHeading201AndRecommendations) {
    EXPECT_EQ(Message(0, 801),
              "166-801-000 PASS: The answer is too short.\nRecommendations:\n\nReset the "
              "controller.");
}

TEST_F(ResultMessages, Recommendations_StandBelowEachOther) {
    EXPECT_EQ(Message(5, 901),
              "166-901-000 FAULT: Bus 0 failed.\nRecommendations:\n\nReseat the planar.\nReplace "
              "the planar.");
}

TEST_F(ResultMessages, MachineHasItsOwn_GenericTextAndRecommendationsAreNotUsed) {
    EXPECT_EQ(Message(5, 902),
              "166-902-000 FAULT: Bus 1 of a 7000 failed.\nRecommendations:\n\nCall service.");
}

TEST_F(ResultMessages, NodeAndNumber_HaveThreeDigitsOrMore) {
    Test().nodeCount = 7;
    EXPECT_EQ(Message(2, 2), "166-002-007 PASS: There is no text");
    Test().nodeCount = 12;
    EXPECT_EQ(Message(2, 34), "166-034-012 PASS: There is no text: message num: 34");
    Test().nodeCount = 1234;
    EXPECT_EQ(Message(2, 2876), "166-2876-1234 PASS: There is no text: message num: 2876");
}

TEST_F(ResultMessages, HostGroupsDigits_NumbersAreWrittenWithout) {
    const GroupingLocale host;
    Test().nodeCount = 1234;
    EXPECT_EQ(Message(2, 2876), "166-2876-1234 PASS: There is no text: message num: 2876");
    Test().WriteOutputLocation(NQUVZDX20::kLogTrace, "a.cpp", 1234, "");
    EXPECT_EQ(Log().back(), "3 BMCI2C At a.cpp: 1234: ");
}

TEST_F(ResultMessages, NoTextForTheNumber_FallbackNamesIt) {
    EXPECT_EQ(Message(5, 950), "166-950-000 FAULT: There is no text: message num: 950");
    EXPECT_EQ(Message(6, 7), "166-007-000 STOP: There is no text: message num: 7");
}

TEST_F(ResultMessages, NumberOfTheFallbackText_IsNotAFallback) {
    EXPECT_EQ(Message(6, 2), "166-002-000 STOP: There is no text");
}

TEST_F(ResultMessages, Message_LogsItsWay) {
    Message(2, 0);
    EXPECT_EQ(Log(),
              (Lines{Location(624), Location(555), Location(617), Location(641), Location(708)}));
}

TEST_F(ResultMessages, MachineNoLongerSupported_IsEmpty) {
    Message(2, 0);
    SetMachine("9999", "IBE1");
    Prepare();
    EXPECT_EQ(Message(2, 0), "");
    EXPECT_EQ(Log(),
              (Lines{Location(624), Location(555),
                     "2 BMCI2C: Neither Machine type nor Bios ID is supported.", Location(617)}));
}

TEST_F(ResultMessagesOf, NoGenericEntry_IsEmpty) {
    EXPECT_EQ(Message({{.types = {"7000"}, .texts = {{"901", "text"}}}}, 5, 901), "");
}

TEST_F(ResultMessagesOf, FallbackTextMissingToo_NamesTheNumberAllTheSame) {
    EXPECT_EQ(Message({{.types = {"GENERIC_QUV"}}, {.types = {"7000"}}}, 6, 801),
              "166-801-000 : message num: 801");
}

TEST_F(ResultMessagesOf, FallbackTextOfTheMachine_IsNotUsed) {
    EXPECT_EQ(
        Message({{.types = {"GENERIC_QUV"}}, {.types = {"7000"}, .texts = {{"2", "own"}}}}, 6, 801),
        "166-801-000 : message num: 801");
}

TEST_F(ResultMessagesOf, HeadingsOfTheMachine_AreNotUsed) {
    EXPECT_EQ(Message({{.types = {"GENERIC_QUV"}, .texts = {{"206", "generic "}}},
                       {.types = {"7000"}, .texts = {{"206", "own "}, {"901", "text"}}}},
                      5, 901),
              "166-901-000 generic text");
}

TEST_F(ResultMessages, WriteOutput_PutsThePrefixBefore) {
    Test().WriteOutput(NQUVZDX20::kLogTrace, "x");
    Test().WriteOutput(NQUVZDX20::kLogError, "");
    EXPECT_EQ(Log(), (Lines{"3 BMCI2C: x", "2 BMCI2C: "}));
}

TEST_F(ResultMessages, WriteOutputLocation_EmptyText_EndsAfterTheLine) {
    Test().WriteOutputLocation(NQUVZDX20::kLogTrace, "BMCI2C_Test_Impl.cpp", 448, "");
    EXPECT_EQ(Log(), Lines{"3 BMCI2C At BMCI2C_Test_Impl.cpp: 448: "});
}

TEST_F(ResultMessages, WriteOutputLocation_Text_FollowsTheLine) {
    Test().WriteOutputLocation(NQUVZDX20::kLogError, "a.cpp", 7, "text");
    EXPECT_EQ(Log(), Lines{"2 BMCI2C At a.cpp: 7: text"});
}

TEST_F(ResultMessages, WriteOutputLocation_NullFile_LosesTheRest) {
    Test().WriteOutputLocation(NQUVZDX20::kLogTrace, nullptr, 448, "text");
    EXPECT_EQ(Log(), Lines{"3 BMCI2C At "});
}
