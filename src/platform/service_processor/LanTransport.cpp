#include <platform/service_processor/FreeIpmiContext.h>
#include <platform/service_processor/LanTimeouts.h>
#include <platform/service_processor/LanTransport.h>
#include <platform/service_processor/LanTrouble.h>
#include <platform/service_processor/Password.h>
#include <platform/service_processor/Workarounds.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;

// The settings allow these three names.
std::uint8_t PrivilegeLevel(const std::string& name) {
    if (name == "user") return IPMI_PRIVILEGE_LEVEL_USER;
    if (name == "operator") return IPMI_PRIVILEGE_LEVEL_OPERATOR;
    return IPMI_PRIVILEGE_LEVEL_ADMIN;
}

constexpr unsigned int kOpenSessionPrivilege =
    IPMI_WORKAROUND_FLAGS_OUTOFBAND_2_0_OPEN_SESSION_PRIVILEGE;

}  // namespace

struct LanTransport::Session {
    FreeIpmiContext context;
    int systemReason = 0;  // errno of the opening

    std::string ErrorText() const {
        if (context.Error() != IPMI_ERR_SYSTEM_ERROR) return context.ErrorText();
        return std::generic_category().message(systemReason);
    }
};

LanTransport::LanTransport(ControllerSettings controllerSettings)
    : controller(std::move(controllerSettings)) {}

std::string LanTransport::Address() const {
    const bool needsBrackets =
        controller.host.find(':') != std::string::npos && !controller.host.starts_with('[');
    const std::string host = needsBrackets ? "[" + controller.host + "]" : controller.host;
    return host + ":" + std::to_string(controller.port);
}

void LanTransport::CheckSettings() const {
    if (controller.user.size() > IPMI_MAX_USER_NAME_LENGTH) {
        throw TransportError(Trouble::Settings, "The user name '" + controller.user +
                                                    "' is longer than the 16 bytes that IPMI "
                                                    "takes.");
    }
    if (!IsProtocol15() && !IPMI_CIPHER_SUITE_ID_SUPPORTED(controller.cipherSuite)) {
        throw TransportError(Trouble::Settings,
                             "FreeIPMI does not support cipher suite " +
                                 std::to_string(controller.cipherSuite) +
                                 ". Most controllers offer cipher suite 3 or 17.");
    }
}

Password LanTransport::ReadPassword() const {
    if (controller.passwordFile.empty()) return Password();
    return Password(controller.passwordFile,
                    IsProtocol15() ? IPMI_1_5_MAX_PASSWORD_LENGTH : IPMI_2_0_MAX_PASSWORD_LENGTH);
}

bool LanTransport::Open(Session& session, const Password& password, unsigned int workarounds,
                        std::chrono::milliseconds silence) const {
    const LanTimeouts timeouts = TimeoutsFor(silence);
    const std::string address = Address();
    const std::uint8_t privilege = PrivilegeLevel(controller.privilegeLevel);
    const ipmi_ctx_t context = session.context.Get();
    errno = 0;
    const int result =
        IsProtocol15()
            ? ipmi_ctx_open_outofband(context, address.c_str(), controller.user.c_str(),
                                      password.Text(), IPMI_AUTHENTICATION_TYPE_MD5, privilege,
                                      timeouts.session, timeouts.retransmission, workarounds,
                                      IPMI_FLAGS_DEFAULT)
            : ipmi_ctx_open_outofband_2_0(
                  context, address.c_str(), controller.user.c_str(), password.Text(), nullptr, 0,
                  privilege, static_cast<std::uint8_t>(controller.cipherSuite), timeouts.session,
                  timeouts.retransmission, workarounds, IPMI_FLAGS_DEFAULT);
    session.systemReason = errno;
    return result == 0;
}

bool LanTransport::NamesNoPrivilege(const Session& session, unsigned int workarounds) const {
    return !IsProtocol15() && (workarounds & kOpenSessionPrivilege) == 0 &&
           session.context.Error() == IPMI_ERR_PRIVILEGE_LEVEL_CANNOT_BE_OBTAINED;
}

IpmiAnswer LanTransport::Send(const IpmiRequest& request, std::chrono::milliseconds limit) {
    const auto start = Clock::now();
    const auto timeLeft = [start] {
        return kLanTotal -
               std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    };
    CheckSettings();
    const unsigned int workarounds = WorkaroundFlags(controller.protocol, controller.workarounds);
    const Password password = ReadPassword();
    const std::chrono::milliseconds silence = LanSilence(limit);

    int attempts = 1;
    Session session;
    bool opened = Open(session, password, workarounds, silence);
    if (!opened && NamesNoPrivilege(session, workarounds) && timeLeft() > silence) {
        // A context whose opening failed is not used again: it keeps the closed socket's number.
        session = Session();
        opened = Open(session, password, workarounds | kOpenSessionPrivilege, silence);
        ++attempts;
    }
    const auto circumstances = [&] {
        return LanCircumstances{.controller = controller,
                                .address = Address(),
                                .silence = silence,
                                .attempts = attempts,
                                .error = session.context.Error(),
                                .errorText = session.ErrorText()};
    };
    if (!opened) throw OpenTrouble(circumstances());
    if (timeLeft() < silence) throw TooSlowToOpen(circumstances());

    auto answer = session.context.Exchange(request);
    if (!answer) throw ExchangeTrouble(circumstances());
    answer->attempts = attempts;
    return *std::move(answer);
}

}  // namespace platform
