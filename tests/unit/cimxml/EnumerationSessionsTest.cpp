#include <cimxml/operations/CimStatus.h>
#include <cimxml/operations/EnumerationSessions.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <host/Status.h>

#include <set>
#include <thread>

namespace cimxml {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Kind = EnumerationSessions::Kind;

constexpr const char* kNameSpace = "root/test";
constexpr std::chrono::seconds kTimeout{10};

class EnumerationSessionsTest : public testing::Test {
protected:
    static EnumerationSessions::Content Objects(std::deque<std::string> objects) {
        return {Kind::Paths, kNameSpace, std::move(objects), kTimeout};
    }

    EnumerationSessions::Piece Pull(const std::string& context, std::size_t count = 1) {
        return sessions.Pull(context, Kind::Paths, "ROOT/test", count);
    }

    template <class Action>
    static CMPIrc CodeOf(const Action& action) {
        try {
            action();
        } catch (const host::Failure& failure) {
            return failure.status.code;
        }
        return CMPI_RC_OK;
    }

    CMPIrc CodeOfPull(const std::string& context) {
        return CodeOf([&] { Pull(context); });
    }

    EnumerationSessions::Clock::time_point time;
    EnumerationSessions sessions{[this] { return time; }};
};

TEST_F(EnumerationSessionsTest, WhatFitsIntoTheFirstPiece_NeedsNoSession) {
    const auto piece = sessions.Open(Objects({"a", "b"}), 2);
    EXPECT_THAT(piece.objects, ElementsAre("a", "b"));
    EXPECT_EQ(piece.context, "");
    EXPECT_EQ(sessions.Open(Objects({}), 0).context, "");
}

TEST_F(EnumerationSessionsTest, Pieces_FollowEachOtherToTheEnd) {
    const auto first = sessions.Open(Objects({"a", "b", "c", "d"}), 1);
    EXPECT_THAT(first.objects, ElementsAre("a"));
    const auto second = Pull(first.context, 2);
    EXPECT_THAT(second.objects, ElementsAre("b", "c"));
    EXPECT_EQ(second.context, first.context);
    const auto third = Pull(first.context, 100);
    EXPECT_THAT(third.objects, ElementsAre("d"));
    EXPECT_EQ(third.context, "");
    EXPECT_EQ(CodeOfPull(first.context), kInvalidEnumerationContext);
}

TEST_F(EnumerationSessionsTest, Contexts_AreNeverTheSame) {
    std::set<std::string> contexts;
    for (std::size_t count = 0; count < kMaxSessions; ++count) {
        const std::string context = sessions.Open(Objects({"a"}), 0).context;
        EXPECT_EQ(context.size(), 32U);
        contexts.insert(context);
    }
    EXPECT_EQ(contexts.size(), kMaxSessions);
}

TEST_F(EnumerationSessionsTest, ContextOfNothing_IsInvalid) {
    const std::string context = sessions.Open(Objects({"a"}), 0).context;
    EXPECT_EQ(CodeOfPull(""), kInvalidEnumerationContext);
    EXPECT_EQ(CodeOfPull("0" + context), kInvalidEnumerationContext);
    EXPECT_EQ(CodeOf([&] { sessions.Pull(context, Kind::Instances, kNameSpace, 1); }),
              kInvalidEnumerationContext);
    EXPECT_EQ(CodeOf([&] { sessions.Pull(context, Kind::Paths, "root/other", 1); }),
              kInvalidEnumerationContext);
    EXPECT_EQ(CodeOf([&] { sessions.Close(context, "root/other"); }), kInvalidEnumerationContext);
    EXPECT_THAT(Pull(context).objects, ElementsAre("a"));
}

TEST_F(EnumerationSessionsTest, ClosedSession_IsGone) {
    const std::string context = sessions.Open(Objects({"a"}), 0).context;
    sessions.Close(context, kNameSpace);
    EXPECT_EQ(CodeOfPull(context), kInvalidEnumerationContext);
    EXPECT_EQ(CodeOf([&] { sessions.Close(context, kNameSpace); }), kInvalidEnumerationContext);
}

TEST_F(EnumerationSessionsTest, SessionThatNobodyPulls_EndsAfterItsTimeout) {
    const std::string context = sessions.Open(Objects({"a"}), 0).context;
    time += kTimeout - std::chrono::milliseconds(1);
    EXPECT_THAT(Pull(context, 0).objects, IsEmpty());  // keeps it alive
    time += kTimeout - std::chrono::milliseconds(1);
    EXPECT_EQ(Pull(context, 0).context, context);
    time += kTimeout;
    EXPECT_EQ(CodeOfPull(context), kInvalidEnumerationContext);
}

TEST_F(EnumerationSessionsTest, OneTooMany_IsRefused_UntilOthersEnd) {
    std::string context;
    for (std::size_t count = 0; count < kMaxSessions; ++count)
        context = sessions.Open(Objects({"a"}), 0).context;
    const auto open = [&] { sessions.Open(Objects({"a"}), 0); };
    EXPECT_EQ(CodeOf(open), kServerLimitsExceeded);
    EXPECT_THAT(sessions.Open(Objects({"a"}), 1).objects, ElementsAre("a"));
    sessions.Close(context, kNameSpace);
    EXPECT_EQ(CodeOf(open), CMPI_RC_OK);
    EXPECT_EQ(CodeOf(open), kServerLimitsExceeded);
    time += kTimeout;  // the clients have left
    EXPECT_EQ(CodeOf(open), CMPI_RC_OK);
}

TEST_F(EnumerationSessionsTest, ParallelPulls_DeliverEachObjectOnce) {
    constexpr int kObjects = 2000;
    std::deque<std::string> objects;
    for (int number = 0; number < kObjects; ++number) objects.push_back(std::to_string(number));
    const std::string context = sessions.Open(Objects(std::move(objects)), 0).context;
    std::vector<std::string> pulled[4];
    std::vector<std::thread> clients;
    for (auto& own : pulled)
        clients.emplace_back([this, &own, &context] {
            try {
                for (;;)
                    for (std::string& object : Pull(context, 3).objects)
                        own.push_back(std::move(object));
            } catch (const host::Failure&) {  // all are pulled
            }
        });
    for (std::thread& client : clients) client.join();
    std::set<std::string> distinct;
    std::size_t count = 0;
    for (const auto& own : pulled) {
        distinct.insert(own.begin(), own.end());
        count += own.size();
    }
    EXPECT_EQ(count, static_cast<std::size_t>(kObjects));
    EXPECT_EQ(distinct.size(), static_cast<std::size_t>(kObjects));
}

}  // namespace
}  // namespace cimxml
