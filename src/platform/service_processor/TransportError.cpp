#include <platform/service_processor/TransportError.h>

namespace platform {

std::string NameOf(TroubleCode code) {
    switch (code) {
        case TroubleCode::Request:
            return "request";
        case TroubleCode::NotPresent:
            return "not_present";
        case TroubleCode::NoDevice:
            return "no_device";
        case TroubleCode::Permission:
            return "permission";
        case TroubleCode::Gone:
            return "gone";
        case TroubleCode::DeviceBusy:
            return "device_busy";
        case TroubleCode::PasswordFile:
            return "password_file";
        case TroubleCode::KeyFile:
            return "k_g_file";
        case TroubleCode::NameNotFound:
            return "name_not_found";
        case TroubleCode::Unreachable:
            return "unreachable";
        case TroubleCode::NoAnswer:
            return "no_answer";
        case TroubleCode::NoSession:
            return "no_session";
        case TroubleCode::RefusedUser:
            return "refused_user";
        case TroubleCode::RefusedPassword:
            return "refused_password";
        case TroubleCode::RefusedPrivilege:
            return "refused_privilege";
        case TroubleCode::RefusedAuthentication:
            return "refused_cipher_suite";
        case TroubleCode::RefusedLogin:
            return "refused_login";
        case TroubleCode::Busy:
            return "busy";
        case TroubleCode::Refused:
            return "refused";
        case TroubleCode::UnusableAnswers:
            return "unusable_answers";
        case TroubleCode::Interrupted:
            return "interrupted";
        case TroubleCode::Other:
            return "other";
    }
    return "other";
}

TransportError CannotBeSent(const std::exception& reason) {
    return {TroubleCode::Other,
            "The request could not be sent: " + std::string(reason.what()) + ".", kRetryAdvice};
}

TransportError Interrupted(int attempts) {
    return {TroubleCode::Interrupted,
            "The program was told to stop before the controller answered.", "Run the test again.",
            attempts};
}

}  // namespace platform
