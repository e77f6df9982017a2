#include <fakes/FakeServiceProcessor.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <test/IpmiExchange.h>

#include <climits>
#include <numeric>

namespace {

using ::testing::Each;
using ::testing::ElementsAre;

IpmiBuffer CountingBuffer() {
    IpmiBuffer buffer;
    std::iota(buffer.begin(), buffer.end(), std::uint8_t{0});
    return buffer;
}

std::size_t DataBytes(int length) {
    const IpmiBuffer buffer{};
    return IpmiResponse(buffer, length).Data().size();
}

constexpr char kDumpHead[] = " Including completion code, received response data is : ";

}  // namespace

TEST(IpmiExchange, DumpRequest_ShowsTheFifteenBytes) {
    EXPECT_EQ(IpmiExchange(OemCommand::I2cBusStatus, 250).DumpRequest(),
              "Sending command data: 01 20 3a 00 09 00 00 00 00 00 00 00 00 00 00 ");
    EXPECT_EQ(IpmiExchange(OemCommand::ControllerGeneration, 256).DumpRequest(),
              "Sending command data: 01 20 3a 00 c1 00 00 00 00 00 00 00 00 00 00 ");
}

TEST(IpmiExchange, SendTo_HandsOverTheRequestInAZeroedBuffer) {
    FakeServiceProcessor::Reset();
    IpmiExchange exchange(OemCommand::I2cBusStatus, 250);
    EXPECT_FALSE(exchange.SendTo(ControllerOfNode(3)));
    const auto requests = FakeServiceProcessor::Requests();
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].node, 3);
    EXPECT_EQ(requests[0].announcedLength, 250);
    EXPECT_EQ(requests[0].bufferSize, 256);
    EXPECT_TRUE(requests[0].waitForCompletion);
    const std::vector<int> bytes(requests[0].buffer.begin(), requests[0].buffer.end());
    EXPECT_THAT(std::vector<int>(bytes.begin(), bytes.begin() + 5),
                ElementsAre(0x01, 0x20, 0x3A, 0x00, 0x09));
    EXPECT_THAT(std::vector<int>(bytes.begin() + 5, bytes.end()), Each(0));
}

TEST(IpmiExchange, SendTo_FreesTheController) {
    FakeServiceProcessor::Reset();
    const std::size_t before = FakeServiceProcessor::ObjectsAlive();
    IpmiExchange(OemCommand::I2cBusStatus, 250).SendTo(ControllerOfNode(0));
    EXPECT_EQ(FakeServiceProcessor::ObjectsAlive(), before);
}

TEST(IpmiExchange, SendTo_NoController_CountsAsNotDelivered) {
    IpmiExchange exchange(OemCommand::I2cBusStatus, 250);
    EXPECT_FALSE(exchange.SendTo(nullptr));
    EXPECT_EQ(exchange.Response().Length(), 250);
}

TEST(IpmiExchange, Response_IsWhatTheControllerAnswered) {
    FakeServiceProcessor::Reset();
    FakeServiceProcessor::Script(0, 0x09, {.completionCode = 0xC1, .data = {0x11, 0xAB}});
    IpmiExchange exchange(OemCommand::I2cBusStatus, 250);
    ASSERT_TRUE(exchange.SendTo(ControllerOfNode(0)));
    const IpmiResponse response = exchange.Response();
    EXPECT_EQ(response.Length(), 3);
    EXPECT_EQ(response.CompletionCode(), 0xC1);
    EXPECT_THAT(std::vector<int>(response.Data().begin(), response.Data().end()),
                ElementsAre(0x11, 0xAB, 0x00));
    EXPECT_EQ(response.DataByte(1), 0xAB);
    EXPECT_EQ(response.DataByte(200), 0);
}

TEST(IpmiResponse, Data_EndsWithTheLengthOrTheBuffer) {
    EXPECT_EQ(DataBytes(0), 0u);
    EXPECT_EQ(DataBytes(1), 1u);
    EXPECT_EQ(DataBytes(2), 2u);
    EXPECT_EQ(DataBytes(246), 246u);
    EXPECT_EQ(DataBytes(247), 247u);
    EXPECT_EQ(DataBytes(248), 247u);
    EXPECT_EQ(DataBytes(250), 247u);
    EXPECT_EQ(DataBytes(256), 247u);
    EXPECT_EQ(DataBytes(100000), 247u);
    EXPECT_EQ(DataBytes(INT_MAX), 247u);
}

TEST(IpmiResponse, Data_NegativeLength_IsEmpty) {
    EXPECT_EQ(DataBytes(-1), 0u);
    EXPECT_EQ(DataBytes(-9), 0u);
    EXPECT_EQ(DataBytes(INT_MIN), 0u);
}

TEST(IpmiResponse, Dump_ShowsNineBytesMoreThanTheLength) {
    const IpmiBuffer buffer = CountingBuffer();
    EXPECT_EQ(IpmiResponse(buffer, 0).Dump(),
              std::string("Response length is : 0") + kDumpHead + "00 01 02 03 04 05 06 07 08 ");
    EXPECT_EQ(IpmiResponse(buffer, 2).Dump(), std::string("Response length is : 2") + kDumpHead +
                                                  "00 01 02 03 04 05 06 07 08 09 0a ");
}

TEST(IpmiResponse, Dump_LengthBeyondTheBuffer_EndsWithTheBuffer) {
    const IpmiBuffer buffer = CountingBuffer();
    const std::string head = std::string("Response length is : 100000") + kDumpHead;
    const std::string dump = IpmiResponse(buffer, 100000).Dump();
    EXPECT_EQ(dump.size(), head.size() + 256 * 3);
    EXPECT_TRUE(dump.ends_with("fd fe ff "));
}

TEST(IpmiResponse, Dump_NegativeLength_ShowsNoBytes) {
    const IpmiBuffer buffer = CountingBuffer();
    EXPECT_EQ(IpmiResponse(buffer, -1).Dump(), std::string("Response length is : -1") + kDumpHead);
}
