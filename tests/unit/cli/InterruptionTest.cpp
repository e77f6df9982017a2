#include <cli/run/Interruption.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace cli {
namespace {

TEST(Interruption, WithoutASignal_IsNotRequested) {
    const Interruption interruption;
    EXPECT_FALSE(interruption.IsRequested());
    EXPECT_EQ(interruption.Signal(), std::nullopt);
}

class InterruptionBy : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Signals, InterruptionBy, testing::Values(SIGINT, SIGTERM, SIGHUP));

TEST_P(InterruptionBy, FirstSignal_IsRememberedOnly) {
    const Interruption interruption;
    ::raise(GetParam());
    EXPECT_TRUE(interruption.IsRequested());
    EXPECT_EQ(interruption.Signal(), GetParam());
}

TEST_P(InterruptionBy, SecondSignal_EndsTheProcess) {
    const auto raiseTwo = [] {
        const Interruption interruption;
        ::raise(SIGINT);
        ::raise(GetParam());
    };
    EXPECT_EXIT(raiseTwo(), testing::KilledBySignal(GetParam()), "");
}

TEST_P(InterruptionBy, SignalThatWasIgnored_StaysIgnored) {
    const auto before = ::signal(GetParam(), SIG_IGN);
    {
        const Interruption interruption;
        ::raise(GetParam());
        EXPECT_FALSE(interruption.IsRequested());
    }
    EXPECT_EQ(::signal(GetParam(), before), SIG_IGN);
}

TEST_P(InterruptionBy, AtItsEnd_SignalsDoWhatTheyDidBefore) {
    const auto raiseAfter = [] {
        { const Interruption interruption; }
        ::raise(GetParam());
    };
    EXPECT_EXIT(raiseAfter(), testing::KilledBySignal(GetParam()), "");
}

TEST(Interruption, BlockingCall_Returns) {
    const auto begin = ::alarm(0);
    EXPECT_EQ(begin, 0u);
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const Interruption interruption;
    const pid_t parent = ::getpid();
    const pid_t child = ::fork();
    if (child == 0) {
        ::usleep(50'000);
        ::kill(parent, SIGTERM);
        ::_exit(0);
    }
    char byte = 0;
    EXPECT_EQ(::read(ends[0], &byte, 1), -1);
    EXPECT_EQ(errno, EINTR);
    EXPECT_EQ(interruption.Signal(), SIGTERM);
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST(Interruption, NextObject_BeginsAnew) {
    {
        const Interruption interruption;
        ::raise(SIGINT);
    }
    const Interruption interruption;
    EXPECT_FALSE(interruption.IsRequested());
    EXPECT_EQ(interruption.Signal(), std::nullopt);
}

}  // namespace
}  // namespace cli
