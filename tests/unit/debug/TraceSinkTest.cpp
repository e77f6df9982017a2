#include <debug/TraceSink.h>
#include <gtest/gtest.h>

TEST(TraceSink, AnyText_IsDiscarded) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    LogMessage("+++QUVSG_BMCI2C_UseOfLog_Provider::enum_instances()\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
