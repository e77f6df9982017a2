#include <gmock/gmock.h>
#include <platform/diagnostics/TRootObject.h>

#include <cstdlib>

#include "ReplacedSettings.h"
#include "TemporaryFolder.h"

namespace {

using NQUVZDX20::TRootObject;

TEST(TRootObject, CoreLogger_IsOneForTheProcess) {
    EXPECT_NE(TRootObject::GetCoreLogger(), nullptr);
    EXPECT_EQ(TRootObject::GetCoreLogger(), TRootObject::GetCoreLogger());
}

void LogAtTheEnd() { TRootObject::GetCoreLogger()->Log(NQUVZDX20::kLogError, "at the end"); }

TEST(TRootObject, CoreLogger_StillWritesWhileTheProcessEnds) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const TemporaryFolder folder;
    const std::string file = folder.File("file");
    // The child of a thread-safe death test starts anew, so the file's path reaches it this way.
    if (std::getenv("LOG_FILE") == nullptr) ::setenv("LOG_FILE", file.c_str(), 1);
    EXPECT_EXIT(
        {
            replacedSettings.log.value = std::string("json:") + std::getenv("LOG_FILE");
            // Registered before the logger is made, so it runs after the logger's own end, if any.
            std::atexit(LogAtTheEnd);
            TRootObject::GetCoreLogger()->Log(NQUVZDX20::kLogError, "before");
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
    ::unsetenv("LOG_FILE");
    EXPECT_THAT(LinesOf(file),
                testing::ElementsAre(testing::EndsWith(R"(,"severity":2,"text":"before"})"),
                                     testing::EndsWith(R"(,"severity":2,"text":"at the end"})")));
}

}  // namespace
