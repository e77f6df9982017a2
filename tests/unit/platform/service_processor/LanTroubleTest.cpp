#include <gtest/gtest.h>
#include <platform/service_processor/lan/LanTrouble.h>

#include <cerrno>

namespace platform::lan {

std::ostream& operator<<(std::ostream& output, const LanFailure& failure) {
    return output << NameOf(failure.code) << ": " << failure.text << ' ' << failure.advice
                  << " (retry " << static_cast<int>(failure.retry) << ')';
}

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLimit{4000};

ControllerSettings ControllerOf(const std::string& protocol) {
    ControllerSettings controller;
    controller.host = "bmc.example";
    controller.user = "tester";
    controller.protocol = protocol;
    return controller;
}

const LanAccount& Account20() {
    static const ControllerSettings controller = ControllerOf("2.0");
    static const LanAccount account(controller);
    return account;
}

const LanAccount& Account15() {
    static const ControllerSettings controller = ControllerOf("1.5");
    static const LanAccount account(controller);
    return account;
}

struct Expected {
    TroubleCode code;
    std::string text;  // behind the controller's place
    std::string advice;
    Retry retry = Retry::Never;
};

void ExpectFailure(const LanFailure& failure, const Expected& expected) {
    EXPECT_EQ(failure.code, expected.code) << failure;
    EXPECT_EQ(failure.text, "The controller at bmc.example:623 " + expected.text);
    EXPECT_EQ(failure.advice, expected.advice);
    EXPECT_EQ(failure.retry, expected.retry) << failure;
}

constexpr char kAnotherSuite[] = "Try another cipher_suite.";
constexpr char kLowerLevel[] = "Raise it in the controller, or set a lower privilege_level.";
constexpr char kRestart[] = "Try again; if that does not help, restart the controller.";
constexpr char kCloseOne[] = "Close one, or try again.";
constexpr char kBySuite3[] = "opened no session by cipher suite 3: ";
constexpr char kLevelRefused[] =
    "does not let the user 'tester' work at the privilege level administrator: ";
constexpr char kLogInRefused[] = "refused the login of the user 'tester': ";
constexpr char kUnknownUser[] = "does not know the user 'tester': ";

struct StatusCase {
    std::uint8_t status;
    Expected expected;
};

class StatusOfTheLogIn : public testing::TestWithParam<StatusCase> {};

TEST_P(StatusOfTheLogIn, IsPutIntoWords) {
    ExpectFailure(StatusRefused(Account20(), GetParam().status), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Codes, StatusOfTheLogIn,
    testing::Values(
        StatusCase{0x01,
                   {TroubleCode::NoSession, "has no session free: status 0x01 (no session free).",
                    kCloseOne, Retry::Later}},
        StatusCase{0x02,
                   {TroubleCode::RefusedLogin,
                    std::string(kLogInRefused) + "status 0x02 (invalid session ID).", kRestart,
                    Retry::Once}},
        StatusCase{
            0x03,
            {TroubleCode::RefusedLogin,
             std::string(kLogInRefused) + "status 0x03 (invalid payload type).", kAnotherSuite}},
        StatusCase{0x04,
                   {TroubleCode::RefusedAuthentication,
                    std::string(kBySuite3) + "status 0x04 (invalid authentication algorithm).",
                    kAnotherSuite}},
        StatusCase{
            0x05,
            {TroubleCode::RefusedAuthentication,
             std::string(kBySuite3) + "status 0x05 (invalid integrity algorithm).", kAnotherSuite}},
        StatusCase{0x06,
                   {TroubleCode::RefusedAuthentication,
                    std::string(kBySuite3) + "status 0x06 (no matching authentication payload).",
                    kAnotherSuite}},
        StatusCase{0x07,
                   {TroubleCode::RefusedAuthentication,
                    std::string(kBySuite3) + "status 0x07 (no matching integrity payload).",
                    kAnotherSuite}},
        StatusCase{0x08,
                   {TroubleCode::RefusedLogin,
                    std::string(kLogInRefused) + "status 0x08 (inactive session ID).", kRestart,
                    Retry::Once}},
        StatusCase{0x09,
                   {TroubleCode::RefusedPrivilege,
                    std::string(kLevelRefused) + "status 0x09 (invalid role).", kLowerLevel}},
        StatusCase{0x0A,
                   {TroubleCode::RefusedPrivilege,
                    std::string(kLevelRefused) + "status 0x0a (privilege level not allowed).",
                    kLowerLevel}},
        StatusCase{0x0B,
                   {TroubleCode::NoSession,
                    "has no session free: status 0x0b (no session free for this privilege level).",
                    kCloseOne, Retry::Later}},
        StatusCase{0x0C,
                   {TroubleCode::RefusedUser,
                    std::string(kUnknownUser) + "status 0x0c (invalid length of the user name).",
                    "Correct the setting user."}},
        StatusCase{0x0D,
                   {TroubleCode::RefusedUser,
                    std::string(kUnknownUser) + "status 0x0d (unauthorized user name).",
                    "Correct the setting user."}},
        StatusCase{0x0E,
                   {TroubleCode::RefusedLogin,
                    std::string(kLogInRefused) + "status 0x0e (unauthorized GUID).", kRestart}},
        StatusCase{0x0F,
                   {TroubleCode::RefusedPassword,
                    "has another password for the user 'tester': status 0x0f (invalid check "
                    "value).",
                    "Correct the password file."}},
        StatusCase{0x10,
                   {TroubleCode::RefusedAuthentication,
                    std::string(kBySuite3) + "status 0x10 (invalid confidentiality algorithm).",
                    kAnotherSuite}},
        StatusCase{
            0x11,
            {TroubleCode::RefusedAuthentication,
             std::string(kBySuite3) + "status 0x11 (no cipher suite matches).", kAnotherSuite}},
        StatusCase{0x12,
                   {TroubleCode::RefusedLogin,
                    std::string(kLogInRefused) + "status 0x12 (illegal or unknown parameter).",
                    "Try another cipher_suite or privilege_level."}},
        StatusCase{
            0x13,
            {TroubleCode::RefusedLogin,
             std::string(kLogInRefused) + "status 0x13 (a status that IPMI 2.0 does not define).",
             kRestart}}));

TEST(CompletionCodeOfTheOpening, IsPutIntoWords) {
    ExpectFailure(Refused(Account20(), Step::Capabilities, 0xCC),
                  {TroubleCode::Refused,
                   "does not tell how to log in: completion code 0xcc (the "
                   "controller could not carry out the command).",
                   "Check that IPMI over LAN is switched on for the privilege_level."});
    ExpectFailure(Refused(Account15(), Step::Challenge, 0x81),
                  {TroubleCode::RefusedUser,
                   std::string(kUnknownUser) + "completion code 0x81 (invalid user name).",
                   "Correct the setting user."});
    ExpectFailure(
        Refused(Account15(), Step::Challenge, 0x82),
        {TroubleCode::RefusedUser,
         std::string(kUnknownUser) + "completion code 0x82 (no login without a user name).",
         "Correct the setting user."});
    ExpectFailure(
        Refused(Account15(), Step::Activation, 0x81),
        {TroubleCode::NoSession, "has no session free: completion code 0x81 (no session slot).",
         kCloseOne, Retry::Later});
    ExpectFailure(Refused(Account15(), Step::Activation, 0x86),
                  {TroubleCode::RefusedPrivilege,
                   std::string(kLevelRefused) +
                       "completion code 0x86 (above the limit of the user or channel).",
                   kLowerLevel});
    ExpectFailure(
        Refused(Account20(), Step::Privilege, 0x80),
        {TroubleCode::RefusedPrivilege,
         std::string(kLevelRefused) + "completion code 0x80 (not available for this user).",
         kLowerLevel});
    ExpectFailure(Refused(Account20(), Step::Privilege, 0x81),
                  {TroubleCode::RefusedPrivilege,
                   std::string(kLevelRefused) +
                       "completion code 0x81 (above the limit of the user or channel).",
                   kLowerLevel});
}

TEST(CompletionCodeOfTheOpening, BusyController_IsAskedLater) {
    const Expected busy{TroubleCode::Busy,
                        "is busy: completion code 0xc0 (the controller is busy).",
                        "Wait a while, then run the test again.", Retry::Later};
    ExpectFailure(Refused(Account20(), Step::Capabilities, 0xC0), busy);
    ExpectFailure(Refused(Account15(), Step::Challenge, 0xC0), busy);
    ExpectFailure(Refused(Account15(), Step::Activation, 0xC0), busy);
    ExpectFailure(Refused(Account20(), Step::Privilege, 0xC0), busy);
}

TEST(Failure, OfTheProtocol_NamesTheOtherOne) {
    ExpectFailure(Failure(Account20(), kNo20),
                  {TroubleCode::RefusedAuthentication, "does not offer IPMI 2.0.",
                   "Set protocol = \"1.5\"."});
    ExpectFailure(Failure(Account15(), kNo15),
                  {TroubleCode::RefusedAuthentication, "does not offer IPMI 1.5 with MD5.",
                   "Set protocol = \"2.0\"."});
}

TEST(Failure, OfTheKey_AsksForItOrDoubtsIt) {
    ExpectFailure(
        Failure(Account20(), kKeyNotSet),
        {TroubleCode::RefusedPassword, "has a key K_G, or another password for the user 'tester'.",
         "Give its key by the setting k_g_file, or correct the password file."});
    ExpectFailure(Failure(Account20(), kOtherKey),
                  {TroubleCode::RefusedPassword,
                   "has another key K_G, or another password for the user 'tester'.",
                   "Correct the file that k_g_file names, or the password file."});
}

TEST(Failure, UserWithTheNameOfAPlace_IsLeftAsItIs) {
    ControllerSettings controller = ControllerOf("2.0");
    controller.user = "<level>";
    ExpectFailure(Failure(LanAccount(controller), kOtherPassword),
                  {TroubleCode::RefusedPassword, "has another password for the user '<level>'.",
                   "Correct the password file."});
}

TEST(NoResponseFailure, NothingAtAll_IsNotRetried) {
    ExpectFailure(NoResponseFailure(Account20(), Stage::Asking, {}, kLimit),
                  {TroubleCode::NoAnswer, "did not answer within 4 s.",
                   "Check the address, the port, and that IPMI over LAN is switched on."});
}

TEST(NoResponseFailure, WithinTheLogIn_NamesTheCipherSuiteOfProtocol20Only) {
    ExpectFailure(NoResponseFailure(Account20(), Stage::LoggingIn, {}, kLimit),
                  {TroubleCode::NoAnswer, "stopped answering while a session was opened.",
                   "Try again; if that does not help, set another cipher_suite, or restart the "
                   "controller.",
                   Retry::Once});
    ExpectFailure(NoResponseFailure(Account15(), Stage::LoggingIn, {}, kLimit),
                  {TroubleCode::NoAnswer, "stopped answering while a session was opened.", kRestart,
                   Retry::Once});
}

TEST(NoResponseFailure, InTheSession_IsOfTheCommand) {
    ExpectFailure(NoResponseFailure(Account20(), Stage::LoggedIn, {}, kLimit),
                  {TroubleCode::NoAnswer, "opened a session, but did not answer the command.",
                   "If it is slow, raise its time_limit.", Retry::Once});
}

TEST(NoResponseFailure, UnusableAnswers_AreCounted) {
    NoResponse noResponse;
    noResponse.unusable.Add(Flaw::NetworkFunction);
    noResponse.unusable.Add(Flaw::NetworkFunction);
    noResponse.unusable.Add(Flaw::Checksum);
    ExpectFailure(NoResponseFailure(Account20(), Stage::LoggedIn, noResponse, kLimit),
                  {TroubleCode::UnusableAnswers,
                   "sent nothing usable within 4 s in answer to the command, but 1 answer with a "
                   "wrong checksum, 2 answers with another network function.",
                   kRestart, Retry::Once});
}

TEST(NoResponseFailure, AnswersToEarlierRequests_AreTold) {
    NoResponse noResponse;
    noResponse.unusable.Add(Flaw::Late);
    ExpectFailure(NoResponseFailure(Account20(), Stage::LoggedIn, noResponse, kLimit),
                  {TroubleCode::UnusableAnswers,
                   "sent nothing usable within 4 s in answer to the command, but 1 answer to an "
                   "earlier request.",
                   kRestart, Retry::Once});
}

TEST(NoResponseFailure, ErrorOfTheNetwork_IsNamed) {
    NoResponse noResponse;
    noResponse.networkError = EHOSTUNREACH;
    ExpectFailure(NoResponseFailure(Account20(), Stage::Asking, noResponse, kLimit),
                  {TroubleCode::Unreachable, "cannot be reached: No route to host.",
                   "Check the address, the port, the network, and that IPMI over LAN is switched "
                   "on."});
}

}  // namespace
}  // namespace platform::lan
