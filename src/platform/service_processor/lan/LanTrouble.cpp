#include <freeipmi/freeipmi.h>
#include <platform/service_processor/CompletionCode.h>
#include <platform/service_processor/Hexadecimal.h>
#include <platform/service_processor/IpmiMessage.h>
#include <platform/service_processor/Seconds.h>
#include <platform/service_processor/lan/LanTrouble.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <system_error>

namespace platform::lan {

namespace {

constexpr char kUserAdvice[] = "Correct the setting user.";
constexpr char kPasswordAdvice[] = "Correct the password file.";
constexpr char kPrivilegeAdvice[] = "Raise it in the controller, or set a lower privilege_level.";
constexpr char kSuiteAdvice[] = "Try another cipher_suite.";
constexpr char kSessionAdvice[] = "Close one, or try again.";

std::string ControllerAt(const LanAccount& account) {
    return "The controller at " + LanPlace(account.controller);
}

std::string QuotedUser(const LanAccount& account) {
    return "the user '" + account.controller.user + "'";
}

std::string SuiteName(const LanAccount& account) {
    return "cipher suite " + std::to_string(account.controller.cipherSuite);
}

std::string CodeInWords(std::uint8_t completionCode, std::string_view meaning) {
    return "completion code " + Hexadecimal(completionCode) +
           (meaning.empty() ? Meaning(completionCode) : " (" + std::string(meaning) + ")");
}

// What IPMI 2.0 calls a status code, and what helps.
struct StatusMeaning {
    std::string_view words;
    TroubleCode code;
    std::string_view advice;
    Retry retry = Retry::Never;
};

StatusMeaning MeaningOfStatus(std::uint8_t status) {
    using enum TroubleCode;
    switch (status) {
        case RMCPPLUS_STATUS_INSUFFICIENT_RESOURCES_TO_CREATE_A_SESSION:
            return {"no session free", NoSession, kSessionAdvice, Retry::Later};
        case RMCPPLUS_STATUS_INVALID_SESSION_ID:
            return {"invalid session ID", RefusedLogin, kRetryAdvice, Retry::Once};
        case RMCPPLUS_STATUS_INVALID_PAYLOAD_TYPE:
            return {"invalid payload type", RefusedLogin, kSuiteAdvice};
        case RMCPPLUS_STATUS_INVALID_AUTHENTICATION_ALGORITHM:
            return {"invalid authentication algorithm", RefusedAuthentication, kSuiteAdvice};
        case RMCPPLUS_STATUS_INVALID_INTEGRITY_ALGORITHM:
            return {"invalid integrity algorithm", RefusedAuthentication, kSuiteAdvice};
        case RMCPPLUS_STATUS_NO_MATCHING_AUTHENTICATION_PAYLOAD:
            return {"no matching authentication payload", RefusedAuthentication, kSuiteAdvice};
        case RMCPPLUS_STATUS_NO_MATCHING_INTEGRITY_PAYLOAD:
            return {"no matching integrity payload", RefusedAuthentication, kSuiteAdvice};
        case RMCPPLUS_STATUS_INACTIVE_SESSION_ID:
            return {"inactive session ID", RefusedLogin, kRetryAdvice, Retry::Once};
        case RMCPPLUS_STATUS_INVALID_ROLE:
            return {"invalid role", RefusedPrivilege, kPrivilegeAdvice};
        case RMCPPLUS_STATUS_UNAUTHORIZED_ROLE_OR_PRIVILEGE_LEVEL_REQUESTED:
            return {"privilege level not allowed", RefusedPrivilege, kPrivilegeAdvice};
        case RMCPPLUS_STATUS_INSUFFICIENT_RESOURCES_TO_CREATE_A_SESSION_AT_THE_REQUESTED_TIME:
            return {"no session free for this privilege level", NoSession, kSessionAdvice,
                    Retry::Later};
        case RMCPPLUS_STATUS_INVALID_NAME_LENGTH:
            return {"invalid length of the user name", RefusedUser, kUserAdvice};
        case RMCPPLUS_STATUS_UNAUTHORIZED_NAME:
            return {"unauthorized user name", RefusedUser, kUserAdvice};
        case RMCPPLUS_STATUS_UNAUTHORIZED_GUID:
            return {"unauthorized GUID", RefusedLogin, kRetryAdvice};
        case RMCPPLUS_STATUS_INVALID_INTEGRITY_CHECK_VALUE:
            return {"invalid check value", RefusedPassword, kPasswordAdvice};
        case RMCPPLUS_STATUS_INVALID_CONFIDENTIALITY_ALGORITHM:
            return {"invalid confidentiality algorithm", RefusedAuthentication, kSuiteAdvice};
        case RMCPPLUS_STATUS_NO_CIPHER_SUITE_MATCH_WITH_PROPOSED_SECURITY_ALGORITHMS:
            return {"no cipher suite matches", RefusedAuthentication, kSuiteAdvice};
        case RMCPPLUS_STATUS_ILLEGAL_OR_UNRECOGNIZED_PARAMETER:
            return {"illegal or unknown parameter", RefusedLogin,
                    "Try another cipher_suite or privilege_level."};
        default:
            return {"a status that IPMI 2.0 does not define", RefusedLogin, kRetryAdvice};
    }
}

// What a refusal of the kind means.
std::string RefusalInWords(const LanAccount& account, TroubleCode code) {
    switch (code) {
        case TroubleCode::NoSession:
            return " has no session free";
        case TroubleCode::RefusedUser:
            return " does not know " + QuotedUser(account);
        case TroubleCode::RefusedPassword:
            return " has another password for " + QuotedUser(account);
        case TroubleCode::RefusedPrivilege:
            return " does not let " + QuotedUser(account) + " work at the privilege level " +
                   account.controller.privilegeLevel;
        case TroubleCode::RefusedAuthentication:
            return " opened no session by cipher suite " +
                   std::to_string(account.controller.cipherSuite);
        default:
            return " refused the log-in of " + QuotedUser(account);
    }
}

LanFailure Refused(const LanAccount& account, TroubleCode code, const std::string& reason,
                   std::string_view advice, Retry retry = Retry::Never) {
    return {.code = code,
            .text = ControllerAt(account) + RefusalInWords(account, code) + ": " + reason + ".",
            .advice = std::string(advice),
            .retry = retry};
}

bool IsBusy(std::uint8_t completionCode) {
    return completionCode == kNodeBusy || completionCode == kStarting;
}

LanFailure BusyNow(const LanAccount& account, std::uint8_t completionCode) {
    return Refused(account, TroubleCode::NoSession, CodeInWords(completionCode, ""), kSessionAdvice,
                   Retry::Later);
}

LanFailure SilentAtStage(const LanAccount& account, Stage stage, std::chrono::milliseconds limit) {
    switch (stage) {
        case Stage::Asking:
            return {
                .code = TroubleCode::NoAnswer,
                .text = ControllerAt(account) + " did not answer within " + InSeconds(limit) + ".",
                .advice = "Check the address, the port, and that IPMI over LAN is switched on."};
        case Stage::LoggingIn:
            return {
                .code = TroubleCode::NoAnswer,
                .text = ControllerAt(account) + " stopped answering while a session was opened.",
                .advice = std::string("Try again; if that does not help, ") +
                          (account.IsProtocol15() ? "" : "set another cipher_suite, or ") +
                          "restart the controller.",
                .retry = Retry::Once};
        case Stage::LoggedIn:
            break;
    }
    return {.code = TroubleCode::NoAnswer,
            .text = ControllerAt(account) + " opened a session, but did not answer the command.",
            .advice = "If it is slow, raise its time_limit.",
            .retry = Retry::Once};
}

}  // namespace

LanFailure ProtocolNotOffered(const LanAccount& account) {
    const bool is15 = account.IsProtocol15();
    return {.code = TroubleCode::RefusedAuthentication,
            .text = ControllerAt(account) + " does not offer " +
                    (is15 ? "IPMI 1.5 with MD5." : "IPMI 2.0."),
            .advice = is15 ? "Set protocol = \"2.0\"." : "Set protocol = \"1.5\"."};
}

LanFailure CapabilitiesRefused(const LanAccount& account, std::uint8_t completionCode) {
    if (IsBusy(completionCode)) return BusyNow(account, completionCode);
    return {.code = TroubleCode::Refused,
            .text = ControllerAt(account) + " does not tell how it can be logged in to: " +
                    CodeInWords(completionCode, "") + ".",
            .advice = "Check that IPMI over LAN is switched on for the privilege_level."};
}

LanFailure ChallengeRefused(const LanAccount& account, std::uint8_t completionCode) {
    if (IsBusy(completionCode)) return BusyNow(account, completionCode);
    switch (completionCode) {
        case 0x81:
            return Refused(account, TroubleCode::RefusedUser,
                           CodeInWords(completionCode, "invalid user name"), kUserAdvice);
        case 0x82:
            return Refused(account, TroubleCode::RefusedUser,
                           CodeInWords(completionCode, "no log-in without a user name"),
                           kUserAdvice);
        default:
            return Refused(account, TroubleCode::RefusedLogin, CodeInWords(completionCode, ""),
                           kRetryAdvice);
    }
}

LanFailure ActivationRefused(const LanAccount& account, std::uint8_t completionCode) {
    if (IsBusy(completionCode)) return BusyNow(account, completionCode);
    const auto noSession = [&](std::string_view meaning) {
        return Refused(account, TroubleCode::NoSession, CodeInWords(completionCode, meaning),
                       kSessionAdvice, Retry::Later);
    };
    switch (completionCode) {
        case 0x81:
            return noSession("no session slot");
        case 0x82:
            return noSession("no session slot for this user");
        case 0x83:
            return noSession("no session slot for this privilege level");
        case 0x84:
            return Refused(account, TroubleCode::RefusedLogin,
                           CodeInWords(completionCode, "sequence number out of range"),
                           kRetryAdvice, Retry::Once);
        case 0x85:
            return Refused(account, TroubleCode::RefusedLogin,
                           CodeInWords(completionCode, "invalid session ID"), kRetryAdvice,
                           Retry::Once);
        case 0x86:
            return Refused(account, TroubleCode::RefusedPrivilege,
                           CodeInWords(completionCode, "above the limit of the user or channel"),
                           kPrivilegeAdvice);
        default:
            return Refused(account, TroubleCode::RefusedLogin, CodeInWords(completionCode, ""),
                           kRetryAdvice);
    }
}

LanFailure PrivilegeRefused(const LanAccount& account, std::uint8_t completionCode) {
    if (IsBusy(completionCode)) return BusyNow(account, completionCode);
    const std::string_view meaning = completionCode == 0x80 ? "not available for this user"
                                     : completionCode == 0x81
                                         ? "above the limit of the user or channel"
                                         : "";
    return Refused(account, TroubleCode::RefusedPrivilege, CodeInWords(completionCode, meaning),
                   kPrivilegeAdvice);
}

LanFailure StatusRefused(const LanAccount& account, std::uint8_t status) {
    const StatusMeaning meaning = MeaningOfStatus(status);
    return Refused(account, meaning.code,
                   "status " + Hexadecimal(status) + " (" + std::string(meaning.words) + ")",
                   meaning.advice, meaning.retry);
}

LanFailure CipherSuiteIsLimited(const LanAccount& account) {
    return {.code = TroubleCode::RefusedPrivilege,
            .text = ControllerAt(account) + " does not offer the privilege level " +
                    account.controller.privilegeLevel + " by " + SuiteName(account) + ".",
            .advice =
                "Raise it in the controller, or set a lower privilege_level or another "
                "cipher_suite."};
}

LanFailure OtherAlgorithms(const LanAccount& account) {
    return {.code = TroubleCode::RefusedAuthentication,
            .text = ControllerAt(account) + " works by other algorithms than those of " +
                    SuiteName(account) + ".",
            .advice = kSuiteAdvice};
}

LanFailure OtherPassword(const LanAccount& account) {
    return {
        .code = TroubleCode::RefusedPassword,
        .text = ControllerAt(account) + " has another password for " + QuotedUser(account) + ".",
        .advice = kPasswordAdvice};
}

LanFailure OtherKey(const LanAccount& account) {
    const bool hasKey = account.key.Length() > 0;
    return {.code = TroubleCode::RefusedPassword,
            .text = ControllerAt(account) + " has " + (hasKey ? "another" : "a") +
                    " key K_G, or another password for " + QuotedUser(account) + ".",
            .advice = hasKey ? "Correct the file that k_g_file names, or the password file."
                             : "Give its key by the setting k_g_file, or correct the password "
                               "file."};
}

LanFailure PasswordSuspected(const LanAccount& account) {
    return {.code = TroubleCode::RefusedPassword,
            .text = ControllerAt(account) + " did not answer the log-in of " + QuotedUser(account) +
                    "; the password is probably wrong.",
            .advice = kPasswordAdvice,
            .retry = Retry::Once};
}

LanFailure FellSilent(const LanAccount& account, Stage stage, const Silence& silence,
                      std::chrono::milliseconds limit) {
    LanFailure failure = SilentAtStage(account, stage, limit);
    if (!silence.unusable.IsEmpty()) {
        failure.code = TroubleCode::UnusableAnswers;
        failure.text = ControllerAt(account) + " sent nothing usable within " + InSeconds(limit) +
                       (stage == Stage::Asking      ? ""
                        : stage == Stage::LoggingIn ? " while a session was opened"
                                                    : " in answer to the command") +
                       ", but " + silence.unusable.InWords() + ".";
        failure.advice = kRetryAdvice;
    } else if (silence.networkError != 0) {
        const Retry retry = failure.retry;
        failure = CannotReach(account, silence.networkError);
        failure.retry = retry;
    }
    return failure;
}

LanFailure CannotReach(const LanAccount& account, int reason) {
    return {.code = TroubleCode::Unreachable,
            .text = ControllerAt(account) +
                    " cannot be reached: " + std::generic_category().message(reason) + ".",
            .advice =
                "Check the address, the port, the network, and that IPMI over LAN is switched "
                "on."};
}

LanFailure CutShort(const LanAccount& account) {
    return {.code = TroubleCode::UnusableAnswers,
            .text = ControllerAt(account) + " cut an answer short while a session was opened.",
            .advice = kRetryAdvice,
            .retry = Retry::Once};
}

LanFailure CannotCompute(const LanAccount& account) {
    return {.code = TroubleCode::Other,
            .text = "This machine cannot compute the codes of " + SuiteName(account) + ".",
            .advice = kSuiteAdvice};
}

}  // namespace platform::lan
