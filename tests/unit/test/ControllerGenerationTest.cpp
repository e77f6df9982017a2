#include <gmock/gmock.h>

#include <climits>

#include "EngineFixture.h"

using engine::kGeneration;
using ::testing::ElementsAre;
using Lines = std::vector<std::string>;

namespace {

constexpr char kSending[] = "3 Sending command data: 01 20 3a 00 c1 00 00 00 00 00 00 00 00 00 00 ";
constexpr char kHeadOfLength[] = "3 Response length is : ";
constexpr char kHeadOfBytes[] = " Including completion code, received response data is : ";
constexpr char kEcho[] = "01 20 3a 00 c1 00 00 00 ";  // the bytes that a response leaves alone

std::string Dump(const std::string& length, const std::string& bytes) {
    return kHeadOfLength + length + kHeadOfBytes + kEcho + bytes;
}

class IsOxcV2 : public engine::EngineTest {
protected:
    static void Answer(ScriptedAnswer answer) {
        FakeServiceProcessor::Script(0, kGeneration, std::move(answer));
    }
};

}  // namespace

TEST_F(IsOxcV2, NoLibraryObject_IsFalseWithoutASend) {
    Test();
    FakeServiceProcessor::absent = {0};
    EXPECT_FALSE(Test().IsOxcV2());
    EXPECT_TRUE(FakeServiceProcessor::Requests().empty());
    EXPECT_EQ(Log(), Lines{kSending});
}

TEST_F(IsOxcV2, Asks_Node0WithLength256) {
    AnswerGeneration({0, 1});
    Test().IsOxcV2();
    const auto requests = FakeServiceProcessor::Requests();
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].node, 0);
    EXPECT_EQ(requests[0].announcedLength, 256);
    EXPECT_EQ(requests[0].bufferSize, 256);
    EXPECT_TRUE(requests[0].waitForCompletion);
}

TEST_F(IsOxcV2, NotDelivered_IsFalse) {
    EXPECT_FALSE(Test().IsOxcV2());
    EXPECT_EQ(Log(), Lines{kSending});
}

TEST_F(IsOxcV2, LengthOne_IsFalseAndSaysSo) {
    Answer({.data = {0, 1}, .length = 1});
    EXPECT_FALSE(Test().IsOxcV2());
    EXPECT_EQ(Log(),
              (Lines{kSending, Dump("1", "00 00 "), "3 isOxcV2 response length not correct"}));
}

TEST_F(IsOxcV2, CompletionCodeC1_IsFalseAndSaysSo) {
    Answer({.completionCode = 0xC1, .data = {0, 1}});
    EXPECT_FALSE(Test().IsOxcV2());
    EXPECT_EQ(Log(),
              (Lines{kSending, Dump("3", "c1 00 01 00 "), "3 IsOxcV2 completion code failed"}));
}

TEST_F(IsOxcV2, OtherCompletionCode_IsFalseAlsoWhenBusy) {
    for (const int code : {0x01, 0x80, 0xFF}) {
        Answer({.completionCode = static_cast<std::uint8_t>(code), .data = {0, 1}});
        EXPECT_FALSE(Test().IsOxcV2());
        EXPECT_EQ(Log().back(), "3 IsOxcV2 completion code failed");
    }
    EXPECT_EQ(FakeServiceProcessor::Requests().size(), 3u);
    EXPECT_TRUE(FakeSystem::pauses.empty());
}

TEST_F(IsOxcV2, LowestBitOfSecondDataByteSet_IsTrue) {
    AnswerGeneration({0, 0x03});
    EXPECT_TRUE(Test().IsOxcV2());
    EXPECT_EQ(Log(), (Lines{kSending, Dump("3", "00 00 03 00 ")}));
}

TEST_F(IsOxcV2, LowestBitOfSecondDataByteClear_IsFalse) {
    AnswerGeneration({0x01, 0x02, 0x01});
    EXPECT_FALSE(Test().IsOxcV2());
    EXPECT_EQ(Log(), (Lines{kSending, Dump("4", "00 01 02 01 00 ")}));
}

TEST_F(IsOxcV2, TouchesNoRecord) {
    Answer({.completionCode = 0xC1});
    Test().IsOxcV2();
    EXPECT_TRUE(Records().empty());
}

namespace {

struct LengthCase {
    int length;
    std::size_t bytesShown;
    bool isV2;
};

class IsOxcV2Length : public IsOxcV2, public ::testing::WithParamInterface<LengthCase> {};

}  // namespace

// The generation bit is looked at in the buffer, also where the length does not announce it.
TEST_P(IsOxcV2Length, IsJudgedWithinTheBuffer) {
    const std::string length = std::to_string(GetParam().length);
    Answer({.data = {0, 1}, .length = GetParam().length});
    EXPECT_EQ(Test().IsOxcV2(), GetParam().isV2);
    const Lines log = Log();
    const std::string head = kHeadOfLength + length + kHeadOfBytes;
    ASSERT_EQ(log.size(), GetParam().isV2 ? 2u : 3u);
    EXPECT_EQ(log[1].substr(0, head.size()), head);
    EXPECT_EQ(log[1].size(), head.size() + 3 * GetParam().bytesShown);
    if (!GetParam().isV2) {
        EXPECT_EQ(log[2], "3 isOxcV2 response length not correct");
    }
}

INSTANTIATE_TEST_SUITE_P(Lengths, IsOxcV2Length,
                         ::testing::Values(LengthCase{INT_MIN, 0, false}, LengthCase{-3, 0, false},
                                           LengthCase{-1, 0, false}, LengthCase{0, 9, false},
                                           LengthCase{1, 10, false}, LengthCase{2, 11, true},
                                           LengthCase{247, 256, true}, LengthCase{248, 256, true},
                                           LengthCase{250, 256, true}, LengthCase{256, 256, true},
                                           LengthCase{100000, 256, true},
                                           LengthCase{INT_MAX, 256, true}),
                         [](const auto& lengthCase) {
                             return engine::LengthName(lengthCase.param.length);
                         });
