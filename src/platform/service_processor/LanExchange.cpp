#include <platform/service_processor/FreeIpmiContext.h>
#include <platform/service_processor/HostAddress.h>
#include <platform/service_processor/HostRandomNumbers.h>
#include <platform/service_processor/LanExchange.h>
#include <platform/service_processor/Workarounds.h>

#include <cerrno>
#include <system_error>
#include <thread>
#include <utility>

namespace platform {

namespace {

using std::chrono::milliseconds;

constexpr unsigned int kOpenSessionPrivilege =
    IPMI_WORKAROUND_FLAGS_OUTOFBAND_2_0_OPEN_SESSION_PRIVILEGE;

bool IsProtocol15(const ControllerSettings& controller) { return controller.protocol == "1.5"; }

// The settings allow these three names.
std::uint8_t PrivilegeLevel(const std::string& name) {
    if (name == "user") return IPMI_PRIVILEGE_LEVEL_USER;
    if (name == "operator") return IPMI_PRIVILEGE_LEVEL_OPERATOR;
    return IPMI_PRIVILEGE_LEVEL_ADMIN;
}

unsigned int CheckedWorkarounds(const ControllerSettings& controller) {
    if (controller.user.size() > IPMI_MAX_USER_NAME_LENGTH) {
        throw TransportError(
            TroubleCode::Settings,
            "The user name '" + controller.user + "' is longer than the 16 bytes that IPMI takes.",
            "");
    }
    if (!IsProtocol15(controller) && !IPMI_CIPHER_SUITE_ID_SUPPORTED(controller.cipherSuite)) {
        throw TransportError(TroubleCode::Settings,
                             "FreeIPMI does not support cipher suite " +
                                 std::to_string(controller.cipherSuite) + ".",
                             "Most controllers offer cipher suite 3 or 17.");
    }
    return WorkaroundFlags(controller.protocol, controller.workarounds);
}

Password ReadPassword(const ControllerSettings& controller) {
    if (controller.passwordFile.empty()) return Password();
    return Password(controller.passwordFile, IsProtocol15(controller)
                                                 ? IPMI_1_5_MAX_PASSWORD_LENGTH
                                                 : IPMI_2_0_MAX_PASSWORD_LENGTH);
}

}  // namespace

std::string LanAddress(const std::string& host, std::uint16_t port) {
    const bool needsBrackets = host.find(':') != std::string::npos && !host.starts_with('[');
    return (needsBrackets ? "[" + host + "]" : host) + ":" + std::to_string(port);
}

// A context whose opening failed keeps the closed socket's number, so each session has its own.
class LanExchange::Session {
public:
    bool Open(const ControllerSettings& settings, const std::string& address,
              const Password& secret, unsigned int flags, const LanTimeouts& timeouts) {
        const std::uint8_t privilege = PrivilegeLevel(settings.privilegeLevel);
        const HostRandomNumbers kept;
        errno = 0;
        const int result =
            IsProtocol15(settings)
                ? ipmi_ctx_open_outofband(context.Get(), address.c_str(), settings.user.c_str(),
                                          secret.Text(), IPMI_AUTHENTICATION_TYPE_MD5, privilege,
                                          timeouts.session, timeouts.retransmission, flags,
                                          IPMI_FLAGS_DEFAULT)
                : ipmi_ctx_open_outofband_2_0(
                      context.Get(), address.c_str(), settings.user.c_str(), secret.Text(), nullptr,
                      0, privilege, static_cast<std::uint8_t>(settings.cipherSuite),
                      timeouts.session, timeouts.retransmission, flags, IPMI_FLAGS_DEFAULT);
        systemReason = errno;
        hasOpened = result == 0;
        return hasOpened;
    }

    std::optional<IpmiAnswer> Exchange(const IpmiRequest& request) {
        return context.Exchange(request);
    }

    Failure LastFailure() const {
        const bool isOfSystem = context.Error() == IPMI_ERR_SYSTEM_ERROR && !hasOpened;
        return {.error = context.Error(),
                .text = isOfSystem ? std::generic_category().message(systemReason)
                                   : context.ErrorText(),
                .hasOpened = hasOpened};
    }

private:
    FreeIpmiContext context;
    int systemReason = 0;  // errno of the opening
    bool hasOpened = false;
};

LanExchange::LanExchange(const ControllerSettings& controllerSettings, TimeAllowance timeAllowance)
    : controller(controllerSettings),
      allowance(timeAllowance),
      schedule(allowance, Now()),
      workarounds(CheckedWorkarounds(controller)),
      password(ReadPassword(controller)) {}

IpmiAnswer LanExchange::Send(const IpmiRequest& request) {
    const std::string address =
        LanAddress(HostAddress(controller.host, schedule.Silence()), controller.port);
    std::optional<LanSession> next = schedule.Next(silences, silent, Now());
    while (next) {
        const bool isPatient = next->packets == Packets::One;
        const Time begin = Now();
        ++attempts;
        Session session;
        if (!session.Open(controller, address, password, workarounds,
                          TimeoutsFor(next->silence, next->packets))) {
            next = AfterFailedOpening(session.LastFailure(), *next);
            continue;
        }
        const auto opening = std::chrono::ceil<milliseconds>(Now() - begin);
        if (isPatient) std::this_thread::sleep_for(kBeforeOnePacket);
        if (!schedule.HasTimeFor(*next, Now())) {
            if (isPatient) break;
            throw TooSlowToOpen(Circumstances(session.LastFailure()));
        }
        if (auto answer = session.Exchange(request)) {
            answer->attempts = attempts;
            return *std::move(answer);
        }
        RememberSilence(session.LastFailure(), *next);
        if (isPatient) break;
        next = schedule.Patient(*next, opening, Now());
    }
    throw InWords(*silence);
}

// The session to try next, if any. Throws what no other session can mend.
std::optional<LanSession> LanExchange::AfterFailedOpening(const Failure& failure,
                                                          const LanSession& last) {
    if (NamesNoPrivilege(failure)) {
        workarounds |= kOpenSessionPrivilege;
    } else {
        RememberSilence(failure, last);
        if (last.packets == Packets::One) return std::nullopt;
    }
    return schedule.Next(silences, silent, Now());
}

// Throws the failure when it is none of silence.
void LanExchange::RememberSilence(const Failure& failure, const LanSession& last) {
    if (allowance.IsStopped()) throw Interrupted(attempts);
    if (failure.error != IPMI_ERR_CONNECTION_TIMEOUT && failure.error != IPMI_ERR_SESSION_TIMEOUT) {
        throw InWords(failure);
    }
    ++silences;
    silent += last.silence;
    const auto progress = [](const Failure& one) {
        return std::pair(one.hasOpened, one.error == IPMI_ERR_SESSION_TIMEOUT);
    };
    if (!silence || progress(*silence) < progress(failure)) silence = failure;
}

bool LanExchange::NamesNoPrivilege(const Failure& failure) const {
    return !IsProtocol15(controller) && (workarounds & kOpenSessionPrivilege) == 0 &&
           failure.error == IPMI_ERR_PRIVILEGE_LEVEL_CANNOT_BE_OBTAINED;
}

LanCircumstances LanExchange::Circumstances(const Failure& failure) const {
    return {.controller = controller,
            .address = LanAddress(controller.host, controller.port),
            .silence = schedule.Silence(),
            .attempts = attempts,
            .error = failure.error,
            .errorText = failure.text};
}

TransportError LanExchange::InWords(const Failure& failure) const {
    return failure.hasOpened ? ExchangeTrouble(Circumstances(failure))
                             : OpenTrouble(Circumstances(failure));
}

}  // namespace platform
