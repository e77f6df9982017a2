#include <base/NoDestructor.h>
#include <gtest/gtest.h>

namespace {

struct Counted {
    explicit Counted(int* destructions) : destroyed(destructions) {}
    ~Counted() { ++*destroyed; }
    int* destroyed;
};

TEST(NoDestructor, TheObjectIsMadeWithTheArgumentsAndNeverDestroyed) {
    int destructions = 0;
    {
        base::NoDestructor<Counted> object(&destructions);
        EXPECT_EQ(object->destroyed, &destructions);
        EXPECT_EQ((*object).destroyed, &destructions);
    }
    EXPECT_EQ(destructions, 0);
}

}  // namespace
