// Why no answer came.
#pragma once

#include <stdexcept>
#include <string>

namespace platform {

enum class Trouble {
    Request,                // the request cannot be sent as it is
    Settings,               // a setting of the controller is wrong
    NoDevice,               // in-band: there is no such device
    NoPermission,           // in-band: the device may not be opened
    PasswordFile,           // LAN: the password cannot or must not be read
    UnknownHost,            // LAN: the address of the host cannot be found
    NoAnswer,               // nothing came in time
    Busy,                   // LAN: no session is free
    UnknownUser,            // LAN
    WrongPassword,          // LAN
    PrivilegeRefused,       // LAN: the user may not work at the privilege level
    AuthenticationRefused,  // LAN: protocol, authentication or cipher suite is not offered
    AnswerTooShort,         // an answer without a completion code
    AnswerToAnotherCommand,
    Other,
};

// what() is full sentences that name the thing and say what to do; never a password.
class TransportError : public std::runtime_error {
public:
    TransportError(Trouble kind, const std::string& text, int attemptCount = 1)
        : std::runtime_error(text), trouble(kind), attempts(attemptCount) {}

    Trouble Kind() const { return trouble; }

    // How often the transport had to begin.
    int Attempts() const { return attempts; }

private:
    Trouble trouble;
    int attempts;
};

}  // namespace platform
