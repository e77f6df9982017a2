#include <cli/ErrorJson.h>
#include <gtest/gtest.h>

namespace cli {
namespace {

TEST(ErrorJson, Problem_HasTextAndAdviceApart) {
    EXPECT_EQ(ErrorJson({"It is gone.", "Bring it back."}).dump(),
              R"({"format_version":1,"verdict":"error",)"
              R"("error":{"text":"It is gone.","advice":"Bring it back."}})");
}

TEST(ErrorJson, MissingAdvice_IsEmpty) {
    EXPECT_EQ(ErrorJson({"It is gone.", ""})["error"]["advice"], "");
}

}  // namespace
}  // namespace cli
