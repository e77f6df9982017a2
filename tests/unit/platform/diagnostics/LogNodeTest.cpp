#include <gmock/gmock.h>
#include <platform/diagnostics/LogNode.h>

#include <thread>
#include <type_traits>

namespace {

using NQUVZDX20::LogNode;

static_assert(!std::is_copy_constructible_v<LogNode>);
static_assert(!std::is_copy_assignable_v<LogNode>);
static_assert(!std::is_convertible_v<int, LogNode>);

TEST(LogNode, OutsideOfScopes_ThereIsNone) { EXPECT_EQ(LogNode::Current(), std::nullopt); }

TEST(LogNode, InnerScope_RestoresTheOuterOne) {
    {
        const LogNode outer(0);
        EXPECT_EQ(LogNode::Current(), 0);
        {
            const LogNode inner(7);
            EXPECT_EQ(LogNode::Current(), 7);
        }
        EXPECT_EQ(LogNode::Current(), 0);
    }
    EXPECT_EQ(LogNode::Current(), std::nullopt);
}

TEST(LogNode, Exception_EndsTheScope) {
    EXPECT_THROW(
        {
            const LogNode scope(1);
            throw 1;
        },
        int);
    EXPECT_EQ(LogNode::Current(), std::nullopt);
}

TEST(LogNode, OtherThread_HasItsOwn) {
    const LogNode scope(1);
    std::optional<int> before = -1;
    std::optional<int> within;
    std::thread([&] {
        before = LogNode::Current();
        const LogNode other(2);
        within = LogNode::Current();
    }).join();
    EXPECT_EQ(before, std::nullopt);
    EXPECT_EQ(within, 2);
    EXPECT_EQ(LogNode::Current(), 1);
}

}  // namespace
