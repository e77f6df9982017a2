#include <cli/Errors.h>
#include <gtest/gtest.h>

namespace cli {
namespace {

TEST(Errors, StatusText_HasNumberMeaningAndText) {
    EXPECT_EQ(StatusText({CMPI_RC_ERR_INVALID_CLASS, "There is no class 'X'."}),
              "CIM status 5, invalid class: There is no class 'X'.");
}

TEST(Errors, StatusTextWithoutText_IsASentence) {
    EXPECT_EQ(StatusText({CMPI_RC_ERR_FAILED, ""}), "CIM status 1, failed.");
    EXPECT_EQ(StatusText({CMPI_RC_ERROR, ""}), "CIM status 200.");
}

TEST(Errors, CallError_NamesTheRequest) {
    EXPECT_STREQ(CallError("Enumerating X", {CMPI_RC_ERR_FAILED, "No."}).what(),
                 "Enumerating X failed. CIM status 1, failed: No.");
}

TEST(Errors, CallErrorWithAdvice_EndsWithIt) {
    EXPECT_STREQ(CallError("Invoking X.Y", {CMPI_RC_ERR_FAILED, "No."}, " Try again.").what(),
                 "Invoking X.Y failed. CIM status 1, failed: No. Try again.");
}

TEST(Errors, CallErrorOfAnUnknownClass_SaysWhereTheClassesAre) {
    EXPECT_STREQ(
        CallError("Enumerating X", {CMPI_RC_ERR_INVALID_CLASS, "There is no X."}).what(),
        "Enumerating X failed. CIM status 5, invalid class: There is no X. Call bmci2c info "
        "to see the classes.");
}

}  // namespace
}  // namespace cli
