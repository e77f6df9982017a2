// Failures of a session in words for the people who must fix them.
#pragma once

#include <platform/service_processor/lan/LanAccount.h>
#include <platform/service_processor/lan/LanChannel.h>
#include <platform/service_processor/lan/LanFailure.h>

#include <cstdint>

namespace platform::lan {

// What a session had reached when the controller fell silent.
enum class Stage { Asking, LoggingIn, LoggedIn };

// Get Channel Authentication Capabilities was answered, but does not offer the protocol.
LanFailure ProtocolNotOffered(const LanAccount& account);

// A step of the opening was answered by a completion code other than 0.
LanFailure CapabilitiesRefused(const LanAccount& account, std::uint8_t completionCode);
LanFailure ChallengeRefused(const LanAccount& account, std::uint8_t completionCode);
LanFailure ActivationRefused(const LanAccount& account, std::uint8_t completionCode);
LanFailure PrivilegeRefused(const LanAccount& account, std::uint8_t completionCode);

// A step of the RMCP+ log-in was answered by a status code other than 0.
LanFailure StatusRefused(const LanAccount& account, std::uint8_t status);

// The controller offers a lower privilege level for the cipher suite than is asked for.
LanFailure CipherSuiteIsLimited(const LanAccount& account);

// It works by other algorithms than those of the cipher suite.
LanFailure OtherAlgorithms(const LanAccount& account);

// It cannot prove that it knows the password, or the key K_G.
LanFailure OtherPassword(const LanAccount& account);
LanFailure OtherKey(const LanAccount& account);

// Activate Session was not answered, which is how IPMI 1.5 refuses a password.
LanFailure PasswordSuspected(const LanAccount& account);

LanFailure FellSilent(const LanAccount& account, Stage stage, const Silence& silence,
                      std::chrono::milliseconds limit);

// There is no way to its address; `reason` is of the system (errno).
LanFailure CannotReach(const LanAccount& account, int reason);

// An answer of the opening is too short for what it must tell.
LanFailure CutShort(const LanAccount& account);

// FreeIPMI cannot compute the codes of the cipher suite.
LanFailure CannotCompute(const LanAccount& account);

}  // namespace platform::lan
