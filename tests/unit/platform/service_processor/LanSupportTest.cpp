#include <freeipmi/freeipmi.h>
#include <gtest/gtest.h>
#include <platform/settings/LanSupport.h>

namespace platform {
namespace {

// The settings know no FreeIPMI, so they must agree with what it says of itself.

TEST(LanSupport, CipherSuites_AreThoseOfFreeIpmi) {
    for (int suite = -1; suite <= 255; ++suite) {
        EXPECT_EQ(IsSupportedCipherSuite(suite), IPMI_CIPHER_SUITE_ID_SUPPORTED(suite)) << suite;
    }
}

TEST(LanSupport, Lengths_AreThoseOfFreeIpmi) {
    EXPECT_EQ(kLongestUserName, static_cast<std::size_t>(IPMI_MAX_USER_NAME_LENGTH));
    EXPECT_EQ(LongestPassword("1.5"), static_cast<std::size_t>(IPMI_1_5_MAX_PASSWORD_LENGTH));
    EXPECT_EQ(LongestPassword("2.0"), static_cast<std::size_t>(IPMI_2_0_MAX_PASSWORD_LENGTH));
}

TEST(LanSupport, PrivilegeLevels_HaveTheNumbersOfFreeIpmi) {
    EXPECT_EQ(PrivilegeLevelOf("user"), IPMI_PRIVILEGE_LEVEL_USER);
    EXPECT_EQ(PrivilegeLevelOf("operator"), IPMI_PRIVILEGE_LEVEL_OPERATOR);
    EXPECT_EQ(PrivilegeLevelOf("administrator"), IPMI_PRIVILEGE_LEVEL_ADMIN);
}

}  // namespace
}  // namespace platform
