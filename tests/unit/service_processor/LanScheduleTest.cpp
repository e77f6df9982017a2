#include <gtest/gtest.h>
#include <platform/service_processor/LanSchedule.h>

namespace platform {

void PrintTo(const LanSession& session, std::ostream* output) {
    *output << session.silence.count() << " ms, " << static_cast<int>(session.packets)
            << " as Packets";
}

namespace {

using std::chrono::milliseconds;

constexpr Time kStart{};
constexpr milliseconds kNotSilent{0};
constexpr TimeAllowance AllowanceOf(milliseconds limit) { return ShareFrom(Time(), limit); }

constexpr TimeAllowance kDefault = AllowanceOf(milliseconds(4000));
constexpr milliseconds kDefaultTotal{8750};

LanSchedule Schedule(TimeAllowance allowance = kDefault) { return {allowance, kStart}; }

std::optional<LanSession> Session(int silence, Packets packets) {
    return LanSession{.silence = milliseconds(silence), .packets = packets};
}

// When a controller that answers nothing is given up.
milliseconds EndOfSilence(const LanSchedule& schedule) {
    milliseconds silent{0};
    int silences = 0;
    while (const auto session = schedule.Next(silences, silent, kStart + silent)) {
        silent += session->silence;
        ++silences;
    }
    return silent;
}

TEST(LanSchedule, FirstSession_HasASeventhForEachExchange) {
    EXPECT_EQ(Schedule().Next(0, kNotSilent, kStart), Session(1250, Packets::Four));
}

TEST(LanSchedule, SessionAfterOneWithoutPrivilegeLevel_IsOfTheSameKind) {
    EXPECT_EQ(Schedule().Next(0, kNotSilent, kStart + milliseconds(700)),
              Session(1150, Packets::Four));
}

TEST(LanSchedule, SessionAfterSilence_HasLongerWaits) {
    EXPECT_EQ(Schedule().Next(1, milliseconds(1250), kStart + milliseconds(1250)),
              Session(1071, Packets::Two));
    EXPECT_EQ(Schedule().Next(2, milliseconds(2321), kStart + milliseconds(2321)),
              Session(918, Packets::Four));
}

// Time in which the controller answered is no silence.
TEST(LanSchedule, SessionAfterALongOpening_IsOfTheWholeShare) {
    EXPECT_EQ(Schedule().Next(1, milliseconds(1250), kStart + milliseconds(5250)),
              Session(500, Packets::Two));
}

TEST(LanSchedule, SilentController_IsAskedUntilTheTimeLimit) {
    for (const int limit : {1, 2, 4, 5}) {
        const milliseconds end = EndOfSilence(Schedule(AllowanceOf(milliseconds(limit * 1000))));
        EXPECT_LE(end, milliseconds(limit * 1000));
        EXPECT_GE(end, milliseconds(limit * 1000 - 50));
    }
}

TEST(LanSchedule, SilentController_IsNeverAskedForMoreThanTenSeconds) {
    for (const int limit : {6, 10, 60, 3600}) {
        const LanSchedule schedule = Schedule(AllowanceOf(milliseconds(limit * 1000)));
        EXPECT_EQ(schedule.Silence(), milliseconds(6000));
        EXPECT_LE(EndOfSilence(schedule), milliseconds(6000));
    }
}

// The worst that a controller can do in sessions of the first kind.
TEST(LanSchedule, EveryExchangeAsLateAsItMayBe_KeepsTheTotal) {
    for (const int limit : {1, 4, 60}) {
        const TimeAllowance allowance = AllowanceOf(milliseconds(limit * 1000));
        const LanSchedule schedule = Schedule(allowance);
        Time now = kStart;
        // Five exchanges, then no privilege level; five more, the command, the closing.
        now += 5 * schedule.Next(0, kNotSilent, now)->silence;
        now += 7 * schedule.Next(0, kNotSilent, now)->silence;
        EXPECT_LE(now - kStart, std::min(allowance.limit + milliseconds(4750), kLanTotal));
    }
}

TEST(LanSchedule, OpeningAsLateAsItMayBe_LeavesTimeForTheCommand) {
    const LanSchedule schedule = Schedule();
    const LanSession session = *schedule.Next(0, kNotSilent, kStart);
    EXPECT_TRUE(schedule.HasTimeFor(session, kStart + 5 * session.silence));
    EXPECT_TRUE(schedule.HasTimeFor(session, kStart + 6 * session.silence));
    EXPECT_FALSE(schedule.HasTimeFor(session, kStart + 6 * session.silence + milliseconds(1)));
}

TEST(LanSchedule, SilentCommand_HasHalfOfWhatIsLeft) {
    const LanSchedule schedule = Schedule();
    const LanSession first = *schedule.Next(0, kNotSilent, kStart);
    EXPECT_EQ(schedule.Patient(first, milliseconds(25), kStart + milliseconds(1300)),
              Session(3540, Packets::One));
}

TEST(LanSchedule, SilentCommandAfterLostPackets_HasAThirdOfWhatIsLeft) {
    const LanSchedule schedule = Schedule();
    const LanSession first = *schedule.Next(0, kNotSilent, kStart);
    const milliseconds opening(TimeoutsFor(first.silence, first.packets).retransmission);
    EXPECT_EQ(schedule.Patient(first, opening, kStart + milliseconds(1458)),
              Session(2185, Packets::One));
}

// What the waits are for: an answer after 3 s at the default limit.
TEST(LanSchedule, SilentCommandAtTheDefaultLimit_IsWaitedForMoreThanThreeSeconds) {
    const LanSchedule schedule = Schedule();
    const LanSession first = *schedule.Next(0, kNotSilent, kStart);
    const milliseconds opening(100);
    EXPECT_GT(schedule.Patient(first, opening, kStart + opening + first.silence)->silence,
              milliseconds(3400));
}

TEST(LanSchedule, SlowCommandAndClosingOfThePatientSession_KeepTheTotal) {
    const LanSchedule schedule = Schedule();
    const LanSession first = *schedule.Next(0, kNotSilent, kStart);
    for (const milliseconds opening : {milliseconds(10), milliseconds(200), milliseconds(800)}) {
        const Time begin = kStart + opening + first.silence;
        const LanSession patient = *schedule.Patient(first, opening, begin);
        const Time opened = begin + 2 * opening + milliseconds(200);
        EXPECT_TRUE(schedule.HasTimeFor(patient, opened));
        EXPECT_LE(opened + 2 * patient.silence - kStart, kDefaultTotal);
        EXPECT_FALSE(schedule.HasTimeFor(patient, begin + 4 * patient.silence));
    }
}

TEST(LanSchedule, SilentCommandWithoutMoreTimeThanBefore_IsGivenUp) {
    const LanSchedule schedule = Schedule();
    const LanSession first = *schedule.Next(0, kNotSilent, kStart);
    EXPECT_EQ(schedule.Patient(first, milliseconds(3000), kStart + milliseconds(4250)),
              std::nullopt);
}

}  // namespace
}  // namespace platform
