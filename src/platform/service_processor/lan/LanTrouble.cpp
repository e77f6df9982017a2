#include <platform/service_processor/InWords.h>
#include <platform/service_processor/IpmiMessage.h>
#include <platform/service_processor/lan/LanTrouble.h>

#include <algorithm>
#include <span>
#include <system_error>

namespace platform::lan {

namespace {

// Refusals; <reason> explains the code.
constexpr Fault kNoSession{TroubleCode::NoSession,
                           "The controller at <host> has no session free: <reason>.",
                           "Close one, or try again.", Retry::Later};
constexpr Fault kBusy{TroubleCode::Busy, "The controller at <host> is busy: <reason>.",
                      "Wait a while, then run the test again.", Retry::Later};
constexpr Fault kUnknownUser{TroubleCode::RefusedUser,
                             "The controller at <host> does not know the user '<user>': <reason>.",
                             "Correct the setting user."};
constexpr Fault kWrongPassword{
    TroubleCode::RefusedPassword,
    "The controller at <host> has another password for the user '<user>': <reason>.",
    kPasswordAdvice};
constexpr Fault kLevelRefused{
    TroubleCode::RefusedPrivilege,
    "The controller at <host> does not let the user '<user>' work at the privilege level <level>: "
    "<reason>.",
    "Raise it in the controller, or set a lower privilege_level."};
constexpr Fault kSuiteRefused{
    TroubleCode::RefusedAuthentication,
    "The controller at <host> opened no session by cipher suite <number>: <reason>.", kSuiteAdvice};
constexpr Fault kCapabilitiesRefused{
    TroubleCode::Refused, "The controller at <host> does not tell how to log in: <reason>.",
    "Check that IPMI over LAN is switched on for the privilege_level."};
constexpr Fault LogInRefused(std::string_view advice, Retry retry = Retry::Never) {
    return {TroubleCode::RefusedLogin,
            "The controller at <host> refused the login of the user '<user>': <reason>.", advice,
            retry};
}
constexpr Fault kLogInRefused = LogInRefused(kRetryAdvice);
constexpr Fault kSessionLost = LogInRefused(kRetryAdvice, Retry::Once);
constexpr Fault kPayloadRefused = LogInRefused(kSuiteAdvice);
constexpr Fault kParameterRefused = LogInRefused("Try another cipher_suite or privilege_level.");

// Timeouts, by the progress of the session.
constexpr Fault kNoFirstAnswer{TroubleCode::NoAnswer,
                               "The controller at <host> did not answer within <time>.",
                               "Check the address, the port, and that IPMI over LAN is switched "
                               "on."};
constexpr Fault LogInStopped(std::string_view advice) {
    return {TroubleCode::NoAnswer,
            "The controller at <host> stopped answering while a session was opened.", advice,
            Retry::Once};
}
constexpr Fault kLogInStopped15 = LogInStopped(kRetryAdvice);
constexpr Fault kLogInStopped20 = LogInStopped(
    "Try again; if that does not help, set another cipher_suite, or restart the controller.");
constexpr Fault kCommandUnanswered{
    TroubleCode::NoAnswer,
    "The controller at <host> opened a session, but did not answer the command.",
    "If it is slow, raise its time_limit.", Retry::Once};
constexpr Fault kUnusable{
    TroubleCode::UnusableAnswers,
    "The controller at <host> sent nothing usable within <time and step>, but <answers>.",
    kRetryAdvice};
constexpr Fault kUnreachable{
    TroubleCode::Unreachable, "The controller at <host> cannot be reached: <reason>.",
    "Check the address, the port, the network, and that IPMI over LAN is switched on."};

// A controller's refusal code and its meaning.
struct Refusal {
    std::uint8_t code;
    std::string_view meaning;
    const Fault& fault;
};

constexpr Refusal kStatuses[] = {
    {0x01, "no session free", kNoSession},
    {0x02, "invalid session ID", kSessionLost},
    {0x03, "invalid payload type", kPayloadRefused},
    {0x04, "invalid authentication algorithm", kSuiteRefused},
    {0x05, "invalid integrity algorithm", kSuiteRefused},
    {0x06, "no matching authentication payload", kSuiteRefused},
    {0x07, "no matching integrity payload", kSuiteRefused},
    {0x08, "inactive session ID", kSessionLost},
    {0x09, "invalid role", kLevelRefused},
    {0x0A, "privilege level not allowed", kLevelRefused},
    {0x0B, "no session free for this privilege level", kNoSession},
    {0x0C, "invalid length of the user name", kUnknownUser},
    {0x0D, "unauthorized user name", kUnknownUser},
    {0x0E, "unauthorized GUID", kLogInRefused},
    {0x0F, "invalid check value", kWrongPassword},
    {0x10, "invalid confidentiality algorithm", kSuiteRefused},
    {0x11, "no cipher suite matches", kSuiteRefused},
    {0x12, "illegal or unknown parameter", kParameterRefused},
};

constexpr Refusal kChallengeCodes[] = {
    {0x81, "invalid user name", kUnknownUser},
    {0x82, "no login without a user name", kUnknownUser},
};

constexpr Refusal kActivationCodes[] = {
    {0x81, "no session slot", kNoSession},
    {0x82, "no session slot for this user", kNoSession},
    {0x83, "no session slot for this privilege level", kNoSession},
    {0x84, "sequence number out of range", kSessionLost},
    {0x85, "invalid session ID", kSessionLost},
    {0x86, "above the limit of the user or channel", kLevelRefused},
};

constexpr Refusal kPrivilegeCodes[] = {
    {0x80, "not available for this user", kLevelRefused},
    {0x81, "above the limit of the user or channel", kLevelRefused},
};

// In the order of Step; `otherwise` is for codes that are not of the step's own.
constexpr struct {
    std::span<const Refusal> codes;
    const Fault& otherwise;
} kSteps[] = {
    {{}, kCapabilitiesRefused},
    {kChallengeCodes, kLogInRefused},
    {kActivationCodes, kLogInRefused},
    {kPrivilegeCodes, kLogInRefused},
};

// Null when the code is not among them.
const Refusal* Find(std::span<const Refusal> refusals, std::uint8_t code) {
    const auto found = std::ranges::find(refusals, code, &Refusal::code);
    return found == refusals.end() ? nullptr : &*found;
}

// `text` with its placeholders filled in.
std::string Filled(std::string_view text, const Places& places) {
    std::string filled;
    for (std::size_t begin = text.find('<'); begin != text.npos; begin = text.find('<')) {
        const std::size_t end = text.find('>', begin);
        filled += text.substr(0, begin);
        filled += places.at(text.substr(begin + 1, end - begin - 1));
        text.remove_prefix(end + 1);
    }
    return filled.append(text);
}

const Fault& FaultOfNoResponse(const LanAccount& account, Stage stage) {
    if (stage == Stage::Asking) return kNoFirstAnswer;
    if (stage == Stage::LoggedIn) return kCommandUnanswered;
    return account.IsProtocol15() ? kLogInStopped15 : kLogInStopped20;
}

std::string_view WordsOf(Stage stage) {
    if (stage == Stage::Asking) return "";
    return stage == Stage::LoggedIn ? " in answer to the command" : " while a session was opened";
}

}  // namespace

LanFailure Failure(const LanAccount& account, const Fault& fault, Places places) {
    const ControllerSettings& controller = account.controller;
    places.insert({{"host", LanPlace(controller)},
                   {"user", controller.user},
                   {"level", controller.privilegeLevel},
                   {"number", std::to_string(controller.cipherSuite)}});
    return {.code = fault.code,
            .text = Filled(fault.text, places),
            .advice = std::string(fault.advice),
            .retry = fault.retry};
}

LanFailure Refused(const LanAccount& account, Step step, std::uint8_t completionCode) {
    const auto& [codes, otherwise] = kSteps[static_cast<std::size_t>(step)];
    const bool isBusy = completionCode == kNodeBusy || completionCode == kStarting ||
                        completionCode == kControllerBusy;
    const Refusal* const known = Find(codes, completionCode);
    return Failure(account,
                   isBusy             ? kBusy
                   : known != nullptr ? known->fault
                                      : otherwise,
                   {{"reason", "completion code " + Hexadecimal(completionCode) +
                                   (known != nullptr ? " (" + std::string(known->meaning) + ")"
                                                     : Meaning(completionCode))}});
}

LanFailure StatusRefused(const LanAccount& account, std::uint8_t status) {
    constexpr Refusal kUnknown{0, "a status that IPMI 2.0 does not define", kLogInRefused};
    const Refusal* const known = Find(kStatuses, status);
    const Refusal& refusal = known == nullptr ? kUnknown : *known;
    return Failure(
        account, refusal.fault,
        {{"reason", "status " + Hexadecimal(status) + " (" + std::string(refusal.meaning) + ")"}});
}

LanFailure NoResponseFailure(const LanAccount& account, Stage stage, const NoResponse& noResponse,
                             std::chrono::milliseconds limit) {
    const Fault& fault = FaultOfNoResponse(account, stage);
    const std::string time = InSeconds(limit);
    LanFailure failure = !noResponse.unusable.IsEmpty()
                             ? Failure(account, kUnusable,
                                       {{"time and step", time + std::string(WordsOf(stage))},
                                        {"answers", noResponse.unusable.InWords()}})
                         : noResponse.networkError != 0
                             ? CannotReach(account, noResponse.networkError)
                             : Failure(account, fault, {{"time", time}});
    failure.retry = fault.retry;
    return failure;
}

LanFailure CannotReach(const LanAccount& account, int reason) {
    return Failure(account, kUnreachable, {{"reason", std::generic_category().message(reason)}});
}

}  // namespace platform::lan
