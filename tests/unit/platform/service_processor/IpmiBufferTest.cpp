#include <gmock/gmock.h>
#include <platform/service_processor/IpmiBuffer.h>

#include <array>
#include <limits>
#include <numeric>

#include "TroubleOf.h"

namespace platform {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;

using Buffer = std::array<unsigned char, 256>;

Buffer RequestBuffer() { return {0x01, 0x20, 0x3A, 0x00, 0x09}; }

Buffer FullBuffer() {
    Buffer buffer;
    buffer.fill(0xEE);
    return buffer;
}

std::vector<std::uint8_t> CountingData(std::size_t count) {
    std::vector<std::uint8_t> data(count);
    std::iota(data.begin(), data.end(), static_cast<std::uint8_t>(1));
    return data;
}

TEST(ReadRequest, RequestRecord_GivesNetFnLunAndCommandWithoutData) {
    Buffer buffer = RequestBuffer();
    buffer[3] = 0x02;

    const IpmiRequest request = ReadRequest(buffer);

    EXPECT_EQ(request.netFn, 0x3A);
    EXPECT_EQ(request.lun, 0x02);
    EXPECT_EQ(request.command, 0x09);
    EXPECT_TRUE(request.data.empty());
}

TEST(ReadRequest, BufferOfNineBytes_IsTheSmallestTaken) {
    const Buffer buffer = RequestBuffer();

    EXPECT_EQ(TroubleOf([&] { ReadRequest(std::span(buffer).first(9)); }), std::nullopt);
    EXPECT_EQ(TroubleOf([&] { ReadRequest(std::span(buffer).first(8)); }),
              (ThrownTrouble{
                  TroubleCode::Request,
                  "A buffer of 8 bytes is too small for an IPMI answer; it takes 256 bytes."}));
    EXPECT_EQ(TroubleOf([&] { ReadRequest(std::span(buffer).first(0)); }),
              (ThrownTrouble{
                  TroubleCode::Request,
                  "A buffer of 0 bytes is too small for an IPMI answer; it takes 256 bytes."}));
}

TEST(ReadRequest, NetFnOfAnAnswer_IsRefused) {
    Buffer buffer = RequestBuffer();
    buffer[2] = 0x3B;
    EXPECT_EQ(TroubleOf([&] { ReadRequest(buffer); }),
              (ThrownTrouble{TroubleCode::Request,
                             "The network function 0x3b is not one of a request; those are even "
                             "and at most 0x3e."}));
}

TEST(ReadRequest, NetFnBeyondSixBits_IsRefused) {
    Buffer buffer = RequestBuffer();
    buffer[2] = 0x40;
    EXPECT_EQ(TroubleOf([&] { ReadRequest(buffer); }),
              (ThrownTrouble{TroubleCode::Request,
                             "The network function 0x40 is not one of a request; those are even "
                             "and at most 0x3e."}));
}

TEST(ReadRequest, LunBeyondTwoBits_IsRefused) {
    Buffer buffer = RequestBuffer();
    buffer[3] = 0x04;
    EXPECT_EQ(TroubleOf([&] { ReadRequest(buffer); }),
              (ThrownTrouble{TroubleCode::Request,
                             "The logical unit 0x04 does not exist; the greatest is 0x03."}));
}

TEST(WriteAnswer, CodeAndData_StandFromByteEightOnWithZeroBehind) {
    Buffer buffer = FullBuffer();

    const int length = WriteAnswer({.completionCode = 0x00, .data = {0x11, 0x22}}, buffer);

    EXPECT_EQ(length, 3);
    EXPECT_EQ(buffer[8], 0x00);
    EXPECT_EQ(buffer[9], 0x11);
    EXPECT_EQ(buffer[10], 0x22);
    EXPECT_THAT(std::span(buffer).subspan(11), Each(0x00));
}

TEST(WriteAnswer, BytesBeforeTheCompletionCode_Stay) {
    Buffer buffer = RequestBuffer();

    WriteAnswer({.completionCode = 0xC1}, buffer);

    EXPECT_THAT(std::span(buffer).first(10),
                ElementsAre(0x01, 0x20, 0x3A, 0x00, 0x09, 0x00, 0x00, 0x00, 0xC1, 0x00));
}

TEST(WriteAnswer, CompletedWithoutData_ReportsLengthOne) {
    Buffer buffer = FullBuffer();
    EXPECT_EQ(WriteAnswer({.completionCode = 0x00}, buffer), 1);
}

TEST(WriteAnswer, FailureWithoutData_ReportsLengthTwo) {
    Buffer buffer = FullBuffer();
    EXPECT_EQ(WriteAnswer({.completionCode = 0xC1}, buffer), 2);
}

TEST(WriteAnswer, FailureWithData_ReportsItsTrueLengthAndDeliversTheData) {
    Buffer buffer = FullBuffer();
    EXPECT_EQ(WriteAnswer({.completionCode = 0xC1, .data = {0x55, 0x66}}, buffer), 3);
    EXPECT_EQ(buffer[9], 0x55);
    EXPECT_EQ(buffer[10], 0x66);
}

class WriteAnswerOfSize : public testing::TestWithParam<std::size_t> {};

TEST_P(WriteAnswerOfSize, DataOfAnySize_FillsAtMostTheBufferAndReportsItsTrueLength) {
    const std::vector<std::uint8_t> data = CountingData(GetParam());
    Buffer buffer = FullBuffer();

    const int length = WriteAnswer({.completionCode = 0x00, .data = data}, buffer);

    EXPECT_EQ(length, 1 + static_cast<int>(data.size()));
    const std::size_t fitting = std::min<std::size_t>(data.size(), 247);
    EXPECT_THAT(std::span(buffer).subspan(9, fitting),
                ElementsAreArray(data.begin(), data.begin() + static_cast<long>(fitting)));
    EXPECT_THAT(std::span(buffer).subspan(9 + fitting), Each(0x00));
}

INSTANTIATE_TEST_SUITE_P(Sizes, WriteAnswerOfSize,
                         testing::Values(0, 1, 2, 246, 247, 248, 250, 256, 100000));

class WriteAnswerOfLength : public testing::TestWithParam<int> {};

TEST_P(WriteAnswerOfLength, GivenLength_IsReportedAsItIs) {
    Buffer buffer = FullBuffer();

    EXPECT_EQ(WriteAnswer({.completionCode = 0xC1, .data = {0x77}, .length = GetParam()}, buffer),
              GetParam());

    EXPECT_EQ(buffer[9], 0x77);
    EXPECT_THAT(std::span(buffer).subspan(10), Each(0x00));
}

INSTANTIATE_TEST_SUITE_P(Lengths, WriteAnswerOfLength,
                         testing::Values(0, 1, 2, 247, 248, 250, 256, 100000, -1,
                                         std::numeric_limits<int>::min(),
                                         std::numeric_limits<int>::max()));

TEST(WriteAnswer, SmallBuffer_CutsTheData) {
    Buffer buffer = FullBuffer();

    const int length =
        WriteAnswer({.completionCode = 0x00, .data = {1, 2, 3}}, std::span(buffer).first(11));

    EXPECT_EQ(length, 4);
    EXPECT_EQ(buffer[9], 1);
    EXPECT_EQ(buffer[10], 2);
    EXPECT_THAT(std::span(buffer).subspan(11), Each(0xEE));
}

TEST(WriteAnswer, BufferThatEndsBehindTheCompletionCode_TakesTheCodeOnly) {
    Buffer buffer = FullBuffer();

    WriteAnswer({.completionCode = 0xC1, .data = {1}}, std::span(buffer).first(9));

    EXPECT_EQ(buffer[8], 0xC1);
    EXPECT_THAT(std::span(buffer).subspan(9), Each(0xEE));
}

}  // namespace
}  // namespace platform
