#include <cimxml/http/Workers.h>
#include <gtest/gtest.h>

#include <atomic>
#include <future>

namespace cimxml {
namespace {

TEST(Workers, Jobs_AreAllDoneBeforeTheEnd) {
    std::atomic<int> done = 0;
    {
        Workers workers(1);
        // The second job may come before the first is done: then it is refused.
        int started = 0;
        while (started < 20)
            if (workers.Start([&] { ++done; })) ++started;
    }
    EXPECT_EQ(done, 20);
}

TEST(Workers, BusyThreads_TakeNoFurtherJob) {
    std::promise<void> end;
    const std::shared_future<void> ended(end.get_future());
    Workers workers(2);
    EXPECT_TRUE(workers.Start([ended] { ended.wait(); }));
    EXPECT_TRUE(workers.Start([ended] { ended.wait(); }));
    EXPECT_FALSE(workers.Start([] {}));
    end.set_value();
}

}  // namespace
}  // namespace cimxml
