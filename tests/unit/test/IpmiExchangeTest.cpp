#include <fakes/FakeServiceProcessor.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <test/IpmiExchange.h>
#include <unistd.h>

#include <climits>
#include <new>
#include <numeric>
#include <stdexcept>
#include <system_error>

namespace {

using platform::IpmiBuffer;
using platform::IpmiResponse;
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

// A response buffer at the very beginning or end of a page, between pages that nobody may read: a
// read on that side of the buffer ends the program, also without sanitizers.
class FencedBuffer {
public:
    enum class Fence { Before, Behind };

    explicit FencedBuffer(Fence fence) {
        void* const all =
            mmap(nullptr, 3 * pageSize, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (all == MAP_FAILED) {
            throw std::system_error(errno, std::generic_category(), "mmap");
        }
        pages = static_cast<std::uint8_t*>(all);
        mprotect(pages + pageSize, pageSize, PROT_READ | PROT_WRITE);
        std::uint8_t* const place =
            pages + (fence == Fence::Before ? pageSize : 2 * pageSize - sizeof(IpmiBuffer));
        buffer = new (place) IpmiBuffer{};
    }
    ~FencedBuffer() { munmap(pages, 3 * pageSize); }
    FencedBuffer(const FencedBuffer&) = delete;
    FencedBuffer& operator=(const FencedBuffer&) = delete;

    const IpmiBuffer& operator*() const { return *buffer; }

private:
    std::size_t pageSize = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    std::uint8_t* pages = nullptr;
    IpmiBuffer* buffer = nullptr;
};

// Reads whatever can be read of a response; the sum of its data bytes.
int ReadAll(const IpmiResponse& response) {
    EXPECT_FALSE(::Dump(response).empty());
    EXPECT_EQ(response.CompletionCode(), 0);
    EXPECT_EQ(response.DataByte(0) + response.DataByte(1) + response.DataByte(2), 0);
    return std::accumulate(response.Data().begin(), response.Data().end(), 0);
}

constexpr char kDumpHead[] = " Including completion code, received response data is : ";

}  // namespace

TEST(IpmiExchange, DumpRequest_ShowsTheFifteenBytes) {
    EXPECT_EQ(IpmiExchange(platform::kI2cBusStatus, 250).DumpRequest(),
              "Sending command data: 01 20 3a 00 09 00 00 00 00 00 00 00 00 00 00 ");
    EXPECT_EQ(IpmiExchange(platform::kControllerGeneration, 256).DumpRequest(),
              "Sending command data: 01 20 3a 00 c1 00 00 00 00 00 00 00 00 00 00 ");
}

TEST(IpmiExchange, SendTo_HandsOverTheRequestInAZeroedBuffer) {
    FakeServiceProcessor::Reset();
    IpmiExchange exchange(platform::kI2cBusStatus, 250);
    EXPECT_FALSE(exchange.SendTo(ControllerOfNode(3, {}), {}));
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
    IpmiExchange(platform::kI2cBusStatus, 250).SendTo(ControllerOfNode(0, {}), {});
    EXPECT_EQ(FakeServiceProcessor::ObjectsAlive(), before);
}

TEST(IpmiExchange, SendTo_NoController_CountsAsNotDelivered) {
    IpmiExchange exchange(platform::kI2cBusStatus, 250);
    EXPECT_FALSE(exchange.SendTo(nullptr, {}));
    EXPECT_EQ(exchange.Response().Length(), 250);
}

TEST(IpmiExchange, Response_IsWhatTheControllerAnswered) {
    FakeServiceProcessor::Reset();
    FakeServiceProcessor::Script(0, 0x09, {.completionCode = 0xC1, .data = {0x11, 0xAB}});
    IpmiExchange exchange(platform::kI2cBusStatus, 250);
    ASSERT_TRUE(exchange.SendTo(ControllerOfNode(0, {}), {}));
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

TEST(IpmiResponse, AnyLength_NothingOutsideTheBufferIsRead) {
    for (const auto fence : {FencedBuffer::Fence::Before, FencedBuffer::Fence::Behind}) {
        const FencedBuffer buffer(fence);
        for (const int length :
             {INT_MIN, -100000, -10, -9, -1, 0, 1, 2, 247, 248, 250, 256, 100000, INT_MAX}) {
            EXPECT_EQ(ReadAll(IpmiResponse(*buffer, length)), 0);
        }
    }
}

TEST(IpmiResponse, DataByte_BeyondTheBuffer_IsRefused) {
    const IpmiBuffer buffer = CountingBuffer();
    EXPECT_EQ(IpmiResponse(buffer, 2).DataByte(246), 255);
    EXPECT_THROW(IpmiResponse(buffer, 2).DataByte(247), std::out_of_range);
}

TEST(IpmiResponse, Dump_ShowsNineBytesMoreThanTheLength) {
    const IpmiBuffer buffer = CountingBuffer();
    EXPECT_EQ(::Dump(IpmiResponse(buffer, 0)),
              std::string("Response length is : 0") + kDumpHead + "00 01 02 03 04 05 06 07 08 ");
    EXPECT_EQ(::Dump(IpmiResponse(buffer, 2)), std::string("Response length is : 2") + kDumpHead +
                                                   "00 01 02 03 04 05 06 07 08 09 0a ");
}

TEST(IpmiResponse, Dump_LengthBeyondTheBuffer_EndsWithTheBuffer) {
    const IpmiBuffer buffer = CountingBuffer();
    const std::string head = std::string("Response length is : 100000") + kDumpHead;
    const std::string dump = ::Dump(IpmiResponse(buffer, 100000));
    EXPECT_EQ(dump.size(), head.size() + 256 * 3);
    EXPECT_TRUE(dump.ends_with("fd fe ff "));
}

TEST(IpmiResponse, Dump_NegativeLength_ShowsNoBytes) {
    const IpmiBuffer buffer = CountingBuffer();
    EXPECT_EQ(::Dump(IpmiResponse(buffer, -1)), std::string("Response length is : -1") + kDumpHead);
}

TEST(IpmiResponse, ControllerData_LeavesOutTheZeroByteBehindTheLastOne) {
    IpmiBuffer buffer{};
    buffer[9] = 0x11;
    EXPECT_THAT(IpmiResponse(buffer, 3).ControllerData(), ElementsAre(0x11, 0x00));
    buffer[11] = 0x80;
    EXPECT_THAT(IpmiResponse(buffer, 3).ControllerData(), ElementsAre(0x11, 0x00, 0x80));
    EXPECT_THAT(IpmiResponse(buffer, -1).ControllerData(), ElementsAre());
    EXPECT_EQ(IpmiResponse(buffer, 100000).ControllerData().size(), 247u);
}

TEST(IpmiExchange, Facts_TellWhyNoAnswerCame) {
    FakeServiceProcessor::Reset();
    IpmiExchange exchange(platform::kI2cBusStatus, 250);
    EXPECT_EQ(exchange.Facts().attempts, 0);
    exchange.SendTo(ControllerOfNode(0, {}), {});
    EXPECT_EQ(exchange.Facts().attempts, 1);
    EXPECT_EQ(exchange.Facts().trouble->code, "no_answer");
}
