#include <cli/ScopedVariable.h>
#include <gtest/gtest.h>

namespace cli {
namespace {

TEST(ScopedVariable, AtItsEnd_IsAsBefore) {
    ::unsetenv("BMCI2C_TEST");
    {
        const ScopedVariable outer("BMCI2C_TEST", "outer");
        {
            const ScopedVariable inner("BMCI2C_TEST", "inner");
            EXPECT_STREQ(std::getenv("BMCI2C_TEST"), "inner");
        }
        EXPECT_STREQ(std::getenv("BMCI2C_TEST"), "outer");
    }
    EXPECT_EQ(std::getenv("BMCI2C_TEST"), nullptr);
}

}  // namespace
}  // namespace cli
