#include <cimxml/net/ConnectionTable.h>
#include <gtest/gtest.h>

namespace cimxml {
namespace {

using std::chrono_literals::operator""s;

class ScriptedGuest : public Guest {
public:
    ScriptedGuest(const std::string& itsMachine, int second) {
        machine = itsMachine;
        waitingSince = Clock::time_point(std::chrono::seconds(second));
    }

    void Interrupt() override { ++interrupted; }
    void CloseNow() override { isClosed = true; }
    bool HasUnread() const override { return hasUnread; }
    bool HasDisconnected() const override { return hasDisconnected; }

    int interrupted = 0;
    bool isClosed = false;
    bool hasUnread = false;
    bool hasDisconnected = false;
};

class ConnectionTableTest : public testing::Test {
protected:
    using Admission = ConnectionTable::Admission;

    const Limits limits{.maxConnections = 3, .maxConnectionsPerAddress = 2};
    ConnectionTable table{limits};
    ScriptedGuest a1{"a", 3};
    ScriptedGuest a2{"a", 1};
    ScriptedGuest b1{"b", 2};
    ScriptedGuest c1{"c", 9};
};

TEST_F(ConnectionTableTest, OneMoreThanAll_ClosesTheOneThatHasWaitedLongest) {
    for (Guest* guest : {&a1, &a2, &b1}) EXPECT_EQ(table.Admit(*guest), Admission::Served);
    EXPECT_EQ(table.Admit(c1), Admission::Served);
    EXPECT_TRUE(a2.isClosed);
    EXPECT_FALSE(a1.isClosed || b1.isClosed);
    EXPECT_EQ(table.Count(), 3U);
    EXPECT_EQ(table.Displaced(), 1U);
}

TEST_F(ConnectionTableTest, GuestWithUnreadBytes_IsNotClosed) {
    for (Guest* guest : {&a1, &a2, &b1}) table.Admit(*guest);
    a2.hasUnread = true;
    EXPECT_EQ(table.Admit(c1), Admission::Served);
    EXPECT_FALSE(a2.isClosed);
    EXPECT_TRUE(b1.isClosed);
}

TEST_F(ConnectionTableTest, OneMoreOfAnAddress_ClosesOneOfThatAddress) {
    ScriptedGuest b0("b", 0);
    ScriptedGuest a3("a", 9);
    for (Guest* guest : {&b0, &a1, &a2}) table.Admit(*guest);
    EXPECT_EQ(table.Admit(a3), Admission::Served);
    EXPECT_TRUE(a2.isClosed);
    EXPECT_FALSE(b0.isClosed || a1.isClosed);
}

TEST_F(ConnectionTableTest, GuestsThatAreAnswered_AreNotClosed) {
    for (Guest* guest : {&a1, &a2, &b1}) {
        table.Admit(*guest);
        guest->isWaiting = false;
    }
    std::list<ScriptedGuest> more;
    for (int number = 0; number < 5; ++number) {
        const auto expected = number < 4 ? Admission::Refused : Admission::Dropped;
        EXPECT_EQ(table.Admit(more.emplace_back("c", number)), expected);
    }
    EXPECT_FALSE(a1.isClosed || a2.isClosed || b1.isClosed);
    table.Remove(more.front());
    EXPECT_EQ(table.Admit(c1), Admission::Refused);
    table.Remove(b1);
    EXPECT_EQ(table.Admit(more.front()), Admission::Served);
}

TEST_F(ConnectionTableTest, PassedDeadlinesAndLostClientsOfRuns_AreInterrupted) {
    for (Guest* guest : {&a1, &a2, &b1}) table.Admit(*guest);
    a1.deadline = Clock::time_point(5s);
    a2.waitsForRun = a2.hasDisconnected = true;
    b1.hasDisconnected = true;
    table.Check(Clock::time_point(4s));
    EXPECT_EQ(a1.interrupted + b1.interrupted, 0);
    EXPECT_EQ(a2.interrupted, 1);
    table.Check(Clock::time_point(5s));
    EXPECT_EQ(a1.interrupted, 1);
}

TEST_F(ConnectionTableTest, Stop_ClosesTheSilentAndWakesTheResting) {
    for (Guest* guest : {&a1, &a2, &b1}) table.Admit(*guest);
    a1.hasBegun = true;
    a2.isPausing = true;
    table.Stop();
    EXPECT_FALSE(a1.isClosed);
    EXPECT_EQ(a2.interrupted, 1);
    EXPECT_TRUE(b1.isClosed);
}

}  // namespace
}  // namespace cimxml
