#include <gtest/gtest.h>
#include <platform/service_processor/lan/LanMessage.h>

#include <numeric>

namespace platform::lan {
namespace {

const LanMessage kAsked{.request = {.netFn = 0x3A, .lun = 0, .command = 0x09}, .sequence = 5};

// What the controller answers; a test changes what it is about.
struct Answer {
    std::uint8_t netFn = 0x3B;
    std::uint8_t responder = 0x20;
    std::uint8_t sequence = 5;
    std::uint8_t command = 0x09;
    Bytes codeAndData = {0x00, 0x80};
    std::uint8_t errorOfChecksums[2] = {0, 0};
};

std::uint8_t Checksum(ByteView bytes) {
    return static_cast<std::uint8_t>(-std::accumulate(bytes.begin(), bytes.end(), 0));
}

Bytes Payload(const Answer& answer) {
    Bytes bytes = {0x81, static_cast<std::uint8_t>(answer.netFn << 2)};
    bytes.push_back(Checksum(bytes) + answer.errorOfChecksums[0]);
    bytes.insert(bytes.end(), {answer.responder, static_cast<std::uint8_t>(answer.sequence << 2),
                               answer.command});
    bytes.insert(bytes.end(), answer.codeAndData.begin(), answer.codeAndData.end());
    bytes.push_back(Checksum(ByteView(bytes).subspan(3)) + answer.errorOfChecksums[1]);
    return bytes;
}

std::optional<Flaw> FlawOf(const Answer& answer, bool checksChecksums = true) {
    IpmiAnswer unused;
    return ReadAnswer(Payload(answer), kAsked, checksChecksums, unused);
}

TEST(ReadAnswer, AnswerToTheRequest_GivesCodeAndData) {
    IpmiAnswer answer;
    EXPECT_EQ(ReadAnswer(Payload({.codeAndData = {0xC1, 0x02, 0x03}}), kAsked, true, answer),
              std::nullopt);
    EXPECT_EQ(answer.completionCode, 0xC1);
    EXPECT_EQ(answer.data, (Bytes{0x02, 0x03}));
}

TEST(ReadAnswer, AnswersToSomethingElse_AreToldApart) {
    EXPECT_EQ(FlawOf({}), std::nullopt);
    EXPECT_EQ(FlawOf({.netFn = 0x3A}), Flaw::NetworkFunction);
    EXPECT_EQ(FlawOf({.responder = 0x22}), Flaw::Responder);
    EXPECT_EQ(FlawOf({.sequence = 6}), Flaw::Sequence);
    EXPECT_EQ(FlawOf({.sequence = 4}), Flaw::Late);
    EXPECT_EQ(FlawOf({.command = 0x08}), Flaw::Command);
}

TEST(ReadAnswer, WrongChecksums_CountUnlessTheyAreNotChecked) {
    for (const Answer& answer :
         {Answer{.errorOfChecksums = {1, 0}}, Answer{.errorOfChecksums = {0, 1}}}) {
        EXPECT_EQ(FlawOf(answer), Flaw::Checksum);
        EXPECT_EQ(FlawOf(answer, false), std::nullopt);
    }
}

TEST(ReadAnswer, NoCompletionCode_IsTooShort) {
    EXPECT_EQ(FlawOf({.codeAndData = {}}), Flaw::TooShort);
    IpmiAnswer unused;
    EXPECT_EQ(ReadAnswer({}, kAsked, true, unused), Flaw::TooShort);
}

}  // namespace
}  // namespace platform::lan
