// Why no usable answer came.
#pragma once

#include <platform/diagnostics/Trouble.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace platform {

enum class TroubleCode {
    Request,                // the request cannot be sent as it is
    NotPresent,             // simulated: the profile says that it does not exist
    NoDevice,               // in-band: the device does not exist
    Permission,             // in-band: the device may not be opened
    Gone,                   // in-band: the device was there and has gone
    DeviceBusy,             // in-band: the driver takes no more requests now
    PasswordFile,           // LAN: the password cannot or must not be read
    KeyFile,                // LAN: the key K_G cannot or must not be read
    NameNotFound,           // LAN: the address of the host cannot be found
    Unreachable,            // LAN: the network reports the address as unreachable
    NoAnswer,               // timeout
    NoSession,              // LAN: no session is free
    RefusedUser,            // LAN: the controller does not know the user
    RefusedPassword,        // LAN
    RefusedPrivilege,       // LAN: the user may not work at the privilege level
    RefusedAuthentication,  // LAN: protocol, authentication or cipher suite is not offered
    RefusedLogin,           // LAN: the login failed for another reason
    Busy,                   // the controller is busy, too late for a retry
    Refused,                // a completion code other than 0
    UnusableAnswers,        // cut short, or to another request
    Interrupted,            // the program was told to stop
    Other,
};

// Errors for which a retry may help.
inline constexpr char kRetryAdvice[] = "Try again; if that does not help, restart the controller.";

// The name of a code for programs: "no_answer".
std::string NameOf(TroubleCode code);

// what() is text and advice, in full sentences; never a password.
class TransportError : public std::runtime_error {
public:
    TransportError(TroubleCode code, const std::string& text, const std::string& advice,
                   int attemptCount = 1)
        : TransportError({NameOf(code), text, advice}, attemptCount) {}
    TransportError(const Trouble& itsTrouble, int attemptCount)
        : std::runtime_error(itsTrouble.advice.empty() ? itsTrouble.text
                                                       : itsTrouble.text + " " + itsTrouble.advice),
          trouble(itsTrouble),
          attempts(attemptCount) {}

    const Trouble& AsTrouble() const { return trouble; }

    // How often the transport had to begin.
    int Attempts() const { return attempts; }

private:
    Trouble trouble;
    int attempts;
};

// The request could not be sent, for a reason other than the transport.
TransportError CannotBeSent(const std::exception& reason);

// The program was told to stop while a controller was asked.
TransportError Interrupted(int attempts = 1);

}  // namespace platform
