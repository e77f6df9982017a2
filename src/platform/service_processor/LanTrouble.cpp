#include <freeipmi/freeipmi.h>
#include <platform/service_processor/LanTrouble.h>
#include <platform/service_processor/Seconds.h>

namespace platform {

namespace {

std::string ControllerAt(const LanCircumstances& circumstances) {
    return "The controller at " + circumstances.address;
}

std::string User(const LanCircumstances& circumstances) {
    return "the user '" + circumstances.controller.user + "'";
}

TroubleCode CodeOfOpenTrouble(int error) {
    switch (error) {
        case IPMI_ERR_CONNECTION_TIMEOUT:
        case IPMI_ERR_SESSION_TIMEOUT:
            return TroubleCode::NoAnswer;
        case IPMI_ERR_USERNAME_INVALID:
            return TroubleCode::RefusedUser;
        case IPMI_ERR_PASSWORD_INVALID:
        case IPMI_ERR_PASSWORD_VERIFICATION_TIMEOUT:
            return TroubleCode::RefusedPassword;
        case IPMI_ERR_PRIVILEGE_LEVEL_INSUFFICIENT:
        case IPMI_ERR_PRIVILEGE_LEVEL_CANNOT_BE_OBTAINED:
            return TroubleCode::RefusedPrivilege;
        case IPMI_ERR_IPMI_2_0_UNAVAILABLE:
        case IPMI_ERR_AUTHENTICATION_TYPE_UNAVAILABLE:
        case IPMI_ERR_CIPHER_SUITE_ID_UNAVAILABLE:
        case IPMI_ERR_BAD_RMCPPLUS_STATUS_CODE:
        case IPMI_ERR_IPMI_ERROR:
            return TroubleCode::RefusedAuthentication;
        case IPMI_ERR_BMC_BUSY:
            return TroubleCode::NoSession;
        default:
            return TroubleCode::Other;
    }
}

// What is wrong, and what to do.
struct Words {
    std::string text;
    std::string advice;
};

Words SilenceWords(const LanCircumstances& at) {
    if (at.error == IPMI_ERR_CONNECTION_TIMEOUT) {
        return {ControllerAt(at) + " did not answer within " + InSeconds(at.silence) + ".",
                "Check the address, the port, and that IPMI over LAN is switched on."};
    }
    const bool hasCipherSuite = at.controller.protocol != "1.5";
    return {ControllerAt(at) + " stopped answering while a session was opened.",
            std::string("Try again; if that does not help, ") +
                (hasCipherSuite ? "set another cipher_suite, or " : "") +
                "restart the controller."};
}

Words PasswordWords(const LanCircumstances& at) {
    const std::string advice = "Correct the password file.";
    if (at.error == IPMI_ERR_PASSWORD_INVALID) {
        return {ControllerAt(at) + " has another password for " + User(at) + ".", advice};
    }
    return {ControllerAt(at) + " did not answer the log-in of " + User(at) +
                "; the password is probably wrong.",
            advice};
}

Words AuthenticationWords(const LanCircumstances& at) {
    switch (at.error) {
        case IPMI_ERR_IPMI_2_0_UNAVAILABLE:
            return {ControllerAt(at) + " does not offer IPMI 2.0.", "Set protocol = \"1.5\"."};
        case IPMI_ERR_AUTHENTICATION_TYPE_UNAVAILABLE:
            return {ControllerAt(at) + " does not offer IPMI 1.5 with MD5.",
                    "Set protocol = \"2.0\"."};
        default:
            return {ControllerAt(at) + " opened no session by cipher suite " +
                        std::to_string(at.controller.cipherSuite) + ": " + at.errorText + ".",
                    "Try another cipher_suite."};
    }
}

Words OpenWords(TroubleCode code, const LanCircumstances& at) {
    switch (code) {
        case TroubleCode::NoAnswer:
            return SilenceWords(at);
        case TroubleCode::RefusedUser:
            return {ControllerAt(at) + " does not know " + User(at) + ".",
                    "Correct the setting user."};
        case TroubleCode::RefusedPassword:
            return PasswordWords(at);
        case TroubleCode::RefusedPrivilege:
            return {ControllerAt(at) + " does not let " + User(at) +
                        " work at the privilege level " + at.controller.privilegeLevel + ".",
                    "Raise it in the controller, or set a lower privilege_level."};
        case TroubleCode::RefusedAuthentication:
            return AuthenticationWords(at);
        case TroubleCode::NoSession:
            return {ControllerAt(at) + " has no session free.", "Close one, or try again."};
        default:
            return {ControllerAt(at) + " opened no session: " + at.errorText + ".", ""};
    }
}

}  // namespace

TransportError OpenTrouble(const LanCircumstances& circumstances) {
    const TroubleCode code = CodeOfOpenTrouble(circumstances.error);
    const Words words = OpenWords(code, circumstances);
    return {code, words.text, words.advice, circumstances.attempts};
}

TransportError TooSlowToOpen(const LanCircumstances& circumstances) {
    return {TroubleCode::NoAnswer,
            ControllerAt(circumstances) +
                " took so long to open a session that the command was not sent.",
            "Raise its time_limit.", circumstances.attempts};
}

TransportError ExchangeTrouble(const LanCircumstances& circumstances) {
    if (circumstances.error == IPMI_ERR_SESSION_TIMEOUT) {
        return {TroubleCode::NoAnswer,
                ControllerAt(circumstances) + " opened a session, but did not answer the command.",
                "If it is slow, raise its time_limit.", circumstances.attempts};
    }
    return {TroubleCode::Other,
            "The request to the controller at " + circumstances.address +
                " failed: " + circumstances.errorText + ".",
            "", circumstances.attempts};
}

}  // namespace platform
