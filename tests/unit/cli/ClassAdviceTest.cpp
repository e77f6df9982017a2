#include <cli/ClassAdvice.h>
#include <gtest/gtest.h>

namespace cli {
namespace {

const std::vector<std::string> kKnownClasses = {"QUVSG_BMCI2C_HelpService",
                                                "QUVSG_BMCI2C_DiagnosticService"};

std::string AdviceFor(const std::string& className, CMPIrc code = CMPI_RC_ERR_INVALID_CLASS) {
    host::Status status;
    status.code = code;
    return ClassAdvice(className, status, kKnownClasses);
}

TEST(ClassAdvice, NameWithoutPrefixOrWithAWrongLetter_IsToldWithTheNearest) {
    const std::string advice = "Did you mean QUVSG_BMCI2C_DiagnosticService?";
    EXPECT_EQ(AdviceFor("DiagnosticService"), advice);
    EXPECT_EQ(AdviceFor("diagnosticservce"), advice);
    EXPECT_EQ(AdviceFor("QUVSG_BMCI2C_DiagnosticServices"), advice);
    EXPECT_EQ(AdviceFor("quvsg_bmci2c_diagnosticservices"), advice);
}

TEST(ClassAdvice, NameOfNoClass_IsToldWithNone) { EXPECT_EQ(AdviceFor("CIM_Fan"), ""); }

TEST(ClassAdvice, AnotherFailure_IsNotThatOfTheClass) {
    EXPECT_EQ(AdviceFor("DiagnosticService", CMPI_RC_ERR_FAILED), "");
}

}  // namespace
}  // namespace cli
