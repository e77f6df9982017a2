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
    EXPECT_STREQ(CallError("Invoking X.Y", {CMPI_RC_ERR_FAILED, "No."}, "Try again.").what(),
                 "Invoking X.Y failed. CIM status 1, failed: No. Try again.");
}

TEST(Errors, CallErrorOfAnUnknownClass_SaysWhereTheClassesAre) {
    EXPECT_STREQ(
        CallError("Enumerating X", {CMPI_RC_ERR_INVALID_CLASS, "There is no X."}).what(),
        "Enumerating X failed. CIM status 5, invalid class: There is no X. Run 'bmci2c info' "
        "to see the classes.");
}

TEST(Errors, CallErrorOfAnUnknownClass_HasItsOwnAdviceFirst) {
    const CallError error("Enumerating X", {CMPI_RC_ERR_INVALID_CLASS, "No."}, "Did you mean Y?");
    EXPECT_EQ(error.What().text, "Enumerating X failed. CIM status 5, invalid class: No.");
    EXPECT_EQ(error.What().advice, "Did you mean Y? Run 'bmci2c info' to see the classes.");
}

TEST(Errors, MessageOfSeveralSentences_HasAllButTheFirstAsAdvice) {
    const Problem problem = SplitMessage("The file a.b is gone. Bring it back. Soon.");
    EXPECT_EQ(problem.text, "The file a.b is gone.");
    EXPECT_EQ(problem.advice, "Bring it back. Soon.");
    EXPECT_EQ(problem.Message(), "The file a.b is gone. Bring it back. Soon.");
}

TEST(Errors, MessageOfOneSentence_HasNoAdvice) {
    EXPECT_EQ(SplitMessage("Cipher suite 3 e. g. works.").advice, "");
    EXPECT_EQ(SplitMessage("").Message(), "");
}

TEST(Errors, LoadProblem_SendsToTheDoctor) {
    EXPECT_EQ(LoadProblem(host::LoadError("No module.")).Message(),
              "No module. Run 'bmci2c doctor' to see which files are wrong and what to do.");
}

}  // namespace
}  // namespace cli
