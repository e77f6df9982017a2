#include <cimxml/load/LogQueue.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <optional>

namespace cimxml {
namespace {

class LogQueueTest : public testing::Test {
protected:
    LogQueueTest() {
        int ends[2] = {-1, -1};
        EXPECT_EQ(::pipe(ends), 0);
        reader = Descriptor(ends[0]);
        writer = Descriptor(ends[1]);
        log.emplace(ends[1], "me: ");
    }

    // All lines until the queue ends.
    std::string Rest() {
        std::string all;
        char block[4096];
        for (ssize_t count = 0; (count = ::read(reader.Get(), block, sizeof block)) > 0;) {
            all.append(block, static_cast<std::size_t>(count));
            if (all.ends_with("end\n")) break;
        }
        return all;
    }

    Descriptor reader;
    Descriptor writer;
    std::optional<LogQueue> log;
};

TEST_F(LogQueueTest, Lines_AreWrittenInTheirOrder) {
    log->Write("one\n");
    log->Write("two\n");
    log->Write("end\n");
    EXPECT_EQ(Rest(), "one\ntwo\nend\n");
    EXPECT_EQ(log->Lost(), 0U);
}

TEST_F(LogQueueTest, FullPipe_LosesLinesAndSaysHowMany) {
    const std::string line = std::string(999, 'x') + "\n";
    constexpr std::uint64_t kLines = 1000;  // many more than pipe and queue hold
    for (std::uint64_t number = 0; number < kLines; ++number) log->Write(line);
    const std::uint64_t lost = log->Lost();
    EXPECT_GT(lost, kLines / 2);
    std::string all;
    while (all.find("lost") == std::string::npos) {
        char block[4096];
        const ssize_t count = ::read(reader.Get(), block, sizeof block);
        all.append(block, static_cast<std::size_t>(count));
    }
    const auto at = all.find("me: ");
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(at % line.size(), 0U);
    EXPECT_THAT(
        all.substr(at),
        testing::StartsWith("me: " + std::to_string(lost) +
                            " log lines were lost: standard error was not read in time.\n"));
}

TEST_F(LogQueueTest, ReaderThatNeverReads_DoesNotKeepTheEndBack) {
    const std::string line = std::string(999, 'x') + "\n";
    for (int number = 0; number < 200; ++number) log->Write(line);
    log.reset();
}

}  // namespace
}  // namespace cimxml
