#include <freeipmi/freeipmi.h>
#include <gtest/gtest.h>
#include <platform/service_processor/LanTrouble.h>

namespace platform {
namespace {

using std::chrono::milliseconds;

struct Case {
    int error;
    TroubleCode kind;
    std::string text;
};

const ControllerSettings& Controller() {
    static const ControllerSettings controller = [] {
        ControllerSettings settings;
        settings.host = "bmc.example";
        settings.user = "tester";
        return settings;
    }();
    return controller;
}

LanCircumstances Circumstances(int error) {
    return {.controller = Controller(),
            .address = "bmc.example:623",
            .silence = milliseconds(4000),
            .attempts = 2,
            .error = error,
            .errorText = "reason of FreeIPMI"};
}

class OpenTroubleTest : public testing::TestWithParam<Case> {};

TEST_P(OpenTroubleTest, ErrorOfFreeIpmi_IsPutIntoWords) {
    const TransportError error = OpenTrouble(Circumstances(GetParam().error));

    EXPECT_EQ(error.Code(), GetParam().kind);
    EXPECT_EQ(error.what(), GetParam().text);
    EXPECT_EQ(error.Attempts(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Errors, OpenTroubleTest,
    testing::Values(
        Case{IPMI_ERR_CONNECTION_TIMEOUT, TroubleCode::NoAnswer,
             "The controller at bmc.example:623 did not answer within 4 s. Check the address, the "
             "port, and that IPMI over LAN is switched on."},
        Case{IPMI_ERR_SESSION_TIMEOUT, TroubleCode::NoAnswer,
             "The controller at bmc.example:623 stopped answering while a session was opened. Try "
             "again; if that does not help, set another cipher_suite, or restart the controller."},
        Case{IPMI_ERR_USERNAME_INVALID, TroubleCode::RefusedUser,
             "The controller at bmc.example:623 does not know the user 'tester'. Correct the "
             "setting user."},
        Case{IPMI_ERR_PASSWORD_INVALID, TroubleCode::RefusedPassword,
             "The controller at bmc.example:623 has another password for the user 'tester'. "
             "Correct the password file."},
        Case{
            IPMI_ERR_PASSWORD_VERIFICATION_TIMEOUT, TroubleCode::RefusedPassword,
            "The controller at bmc.example:623 did not answer the log-in of the user 'tester'; the "
            "password is probably wrong. Correct the password file."},
        Case{IPMI_ERR_PRIVILEGE_LEVEL_INSUFFICIENT, TroubleCode::RefusedPrivilege,
             "The controller at bmc.example:623 does not let the user 'tester' work at the "
             "privilege level administrator. Raise it in the controller, or set a lower "
             "privilege_level."},
        Case{IPMI_ERR_PRIVILEGE_LEVEL_CANNOT_BE_OBTAINED, TroubleCode::RefusedPrivilege,
             "The controller at bmc.example:623 does not let the user 'tester' work at the "
             "privilege level administrator. Raise it in the controller, or set a lower "
             "privilege_level."},
        Case{IPMI_ERR_IPMI_2_0_UNAVAILABLE, TroubleCode::RefusedAuthentication,
             "The controller at bmc.example:623 does not offer IPMI 2.0. Set protocol = \"1.5\"."},
        Case{IPMI_ERR_AUTHENTICATION_TYPE_UNAVAILABLE, TroubleCode::RefusedAuthentication,
             "The controller at bmc.example:623 does not offer IPMI 1.5 with MD5. Set protocol = "
             "\"2.0\"."},
        Case{IPMI_ERR_CIPHER_SUITE_ID_UNAVAILABLE, TroubleCode::RefusedAuthentication,
             "The controller at bmc.example:623 opened no session by cipher suite 3: reason of "
             "FreeIPMI. Try another cipher_suite."},
        Case{IPMI_ERR_BMC_BUSY, TroubleCode::NoSession,
             "The controller at bmc.example:623 has no session free. Close one, or try again."},
        Case{IPMI_ERR_SYSTEM_ERROR, TroubleCode::Other,
             "The controller at bmc.example:623 opened no session: reason of FreeIPMI."}));

TEST(OpenTrouble, SilenceOfProtocol15_NamesNoCipherSuite) {
    ControllerSettings controller = Controller();
    controller.protocol = "1.5";
    const TransportError error = OpenTrouble({.controller = controller,
                                              .address = "bmc.example:623",
                                              .silence = milliseconds(4000),
                                              .attempts = 2,
                                              .error = IPMI_ERR_SESSION_TIMEOUT,
                                              .errorText = ""});
    EXPECT_STREQ(error.what(),
                 "The controller at bmc.example:623 stopped answering while a session was opened. "
                 "Try again; if that does not help, restart the controller.");
}

TEST(TooSlowToOpen, NoTimeLeft_SaysThatNothingWasSent) {
    const TransportError error = TooSlowToOpen(Circumstances(IPMI_ERR_SUCCESS));

    EXPECT_EQ(error.Code(), TroubleCode::NoAnswer);
    EXPECT_STREQ(error.what(),
                 "The controller at bmc.example:623 took so long to open a session that the "
                 "command was not sent. Raise its time_limit.");
    EXPECT_EQ(error.Attempts(), 2);
}

TEST(ExchangeTrouble, SilenceInTheSession_IsNoAnswer) {
    const TransportError error = ExchangeTrouble(Circumstances(IPMI_ERR_SESSION_TIMEOUT));

    EXPECT_EQ(error.Code(), TroubleCode::NoAnswer);
    EXPECT_STREQ(error.what(),
                 "The controller at bmc.example:623 opened a session, but did not answer the "
                 "command. If it is slow, raise its time_limit.");
    EXPECT_EQ(error.Attempts(), 2);
}

TEST(ExchangeTrouble, AnotherError_KeepsTheTextOfFreeIpmi) {
    const TransportError error = ExchangeTrouble(Circumstances(IPMI_ERR_SYSTEM_ERROR));

    EXPECT_EQ(error.Code(), TroubleCode::Other);
    EXPECT_STREQ(error.what(),
                 "The request to the controller at bmc.example:623 failed: reason of FreeIPMI.");
}

}  // namespace
}  // namespace platform
