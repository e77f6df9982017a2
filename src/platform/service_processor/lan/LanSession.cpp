#include <platform/service_processor/lan/Format15.h>
#include <platform/service_processor/lan/LanSession.h>
#include <platform/service_processor/lan/LogIn.h>

namespace platform::lan {

namespace {

constexpr std::uint8_t kGetCapabilities = 0x38;
constexpr std::uint8_t kSetPrivilegeLevel = 0x3B;
constexpr std::uint8_t kCloseSession = 0x3C;

constexpr std::uint8_t kThisChannel = 0x0E;
constexpr std::uint8_t kExtendedBit = 0x80;  // ask for, and tell of, IPMI 2.0

// In the answer to Get Channel Authentication Capabilities.
constexpr std::size_t kTypesPlace = 1;
constexpr std::size_t kExtendedPlace = 3;
constexpr std::size_t kCapabilitiesSize = 8;
constexpr std::uint8_t kMd5Bit = 0x04;
constexpr std::uint8_t kOffers20Bit = 0x02;

bool Offers15(const Bytes& capabilities) { return (capabilities[kTypesPlace] & kMd5Bit) != 0; }

bool Offers20(const Bytes& capabilities) {
    return (capabilities[kTypesPlace] & kExtendedBit) != 0 &&
           (capabilities[kExtendedPlace] & kOffers20Bit) != 0;
}

}  // namespace

LanSession::LanSession(const LanAccount& lanAccount, const std::string& address,
                       TimeAllowance timeAllowance, Time deadline)
    : account(lanAccount),
      allowance(timeAllowance),
      channel(address, account.controller.port, allowance, deadline),
      conversation(account, channel) {}

LanSession::~LanSession() {
    if (format) conversation.Abandon(*format, CloseRequest());
}

IpmiAnswer LanSession::Send(const IpmiRequest& request) {
    try {
        IpmiAnswer answer = OpenAndSend(request);
        conversation.End(*format, CloseRequest());
        format.reset();
        return answer;
    } catch (const NoResponse& noResponse) {
        throw NoResponseFailure(account, stage, noResponse, allowance.limit);
    }
}

IpmiAnswer LanSession::OpenAndSend(const IpmiRequest& request) {
    AskCapabilities();
    stage = Stage::LoggingIn;
    format = account.IsProtocol15() ? LogIn15(account, conversation) : LogIn20(account, channel);
    SetPrivilegeLevel();
    stage = Stage::LoggedIn;
    return conversation.Ask(*format, request);
}

void LanSession::AskCapabilities() {
    Format15 outside(account, {});
    const auto channelNumber = static_cast<std::uint8_t>(
        account.IsProtocol15() ? kThisChannel : kThisChannel | kExtendedBit);
    const Bytes answer = conversation.AskStep(outside, Step::Capabilities,
                                              {.netFn = kAppNetFn,
                                               .command = kGetCapabilities,
                                               .data = {channelNumber, account.PrivilegeLevel()}},
                                              kCapabilitiesSize);
    const bool is15 = account.IsProtocol15();
    const bool isOffered = is15 ? Offers15(answer) : Offers20(answer);
    if (!isOffered && !account.Has("authcap")) throw Failure(account, is15 ? kNo15 : kNo20);
}

void LanSession::SetPrivilegeLevel() {
    conversation.AskStep(
        *format, Step::Privilege,
        {.netFn = kAppNetFn, .command = kSetPrivilegeLevel, .data = {account.PrivilegeLevel()}});
}

IpmiRequest LanSession::CloseRequest() const {
    Bytes data;
    AppendNumber(data, format->SessionId());
    return {.netFn = kAppNetFn, .command = kCloseSession, .data = data};
}

}  // namespace platform::lan
