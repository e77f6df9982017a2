// Texts for failures of a session, for the people who must fix them.
#pragma once

#include <platform/service_processor/TransportError.h>
#include <platform/service_processor/lan/LanAccount.h>
#include <platform/service_processor/lan/LanChannel.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace platform::lan {

// Whether a retry with another session may help.
enum class Retry {
    Never,
    Once,   // timeout, or the controller lost track of the session
    Later,  // it has no session free now
};

// Why a session did not lead to an answer; text and advice as in Trouble. Sessions throw it.
struct LanFailure {
    TroubleCode code;
    std::string text;
    std::string advice;
    Retry retry = Retry::Never;
};

// A template of a failure. <host>, <user>, <level> and <number> (of the cipher
// suite) in the text are the account's; other placeholders are filled in where the failure occurs.
struct Fault {
    TroubleCode code;
    std::string_view text;
    std::string_view advice;
    Retry retry = Retry::Never;
};

// The values of a fault's other placeholders, by name.
using Places = std::map<std::string_view, std::string>;

LanFailure Failure(const LanAccount& account, const Fault& fault, Places places = {});

// A step of the opening that a controller can refuse by a completion code other than 0.
enum class Step { Capabilities, Challenge, Activation, Privilege };

LanFailure Refused(const LanAccount& account, Step step, std::uint8_t completionCode);

// A step of the RMCP+ handshake was answered by a status code other than 0.
LanFailure StatusRefused(const LanAccount& account, std::uint8_t status);

// The progress of a session at a timeout.
enum class Stage { Asking, LoggingIn, LoggedIn };

LanFailure NoResponseFailure(const LanAccount& account, Stage stage, const NoResponse& noResponse,
                             std::chrono::milliseconds limit);

// There is no way to its address; `reason` is of the system (errno).
LanFailure CannotReach(const LanAccount& account, int reason);

// Advice that several faults share.
inline constexpr std::string_view kPasswordAdvice = "Correct the password file.";
inline constexpr std::string_view kSuiteAdvice = "Try another cipher_suite.";

inline constexpr Fault kNo20{TroubleCode::RefusedAuthentication,
                             "The controller at <host> does not offer IPMI 2.0.",
                             "Set protocol = \"1.5\"."};
inline constexpr Fault kNo15{TroubleCode::RefusedAuthentication,
                             "The controller at <host> does not offer IPMI 1.5 with MD5.",
                             "Set protocol = \"2.0\"."};
inline constexpr Fault kSuiteIsLimited{
    TroubleCode::RefusedPrivilege,
    "The controller at <host> does not offer the privilege level <level> by cipher suite <number>.",
    "Raise it in the controller, or set a lower privilege_level or another cipher_suite."};
inline constexpr Fault kOtherAlgorithms{
    TroubleCode::RefusedAuthentication,
    "The controller at <host> works by other algorithms than those of cipher suite <number>.",
    kSuiteAdvice};
inline constexpr Fault kOtherPassword{
    TroubleCode::RefusedPassword,
    "The controller at <host> has another password for the user '<user>'.", kPasswordAdvice};
inline constexpr Fault kKeyNotSet{
    TroubleCode::RefusedPassword,
    "The controller at <host> has a key K_G, or another password for the user '<user>'.",
    "Give its key by the setting k_g_file, or correct the password file."};
inline constexpr Fault kOtherKey{
    TroubleCode::RefusedPassword,
    "The controller at <host> has another key K_G, or another password for the user '<user>'.",
    "Correct the file that k_g_file names, or the password file."};
// Activate Session timed out, which is how IPMI 1.5 refuses a password.
inline constexpr Fault kPasswordSuspected{
    TroubleCode::RefusedPassword,
    "The controller at <host> did not answer the login of the user '<user>'; the password is "
    "probably wrong.",
    kPasswordAdvice, Retry::Once};
inline constexpr Fault kCutShort{
    TroubleCode::UnusableAnswers,
    "The controller at <host> cut an answer short while a session was opened.", kRetryAdvice,
    Retry::Once};
inline constexpr Fault kCannotCompute{
    TroubleCode::Other, "This machine cannot compute the codes of cipher suite <number>.",
    kSuiteAdvice};

}  // namespace platform::lan
