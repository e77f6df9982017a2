#include <platform/service_processor/lan/Format15.h>
#include <platform/service_processor/lan/LanTrouble.h>
#include <platform/service_processor/lan/LogIn.h>

namespace platform::lan {

namespace {

constexpr std::uint8_t kGetSessionChallenge = 0x39;
constexpr std::uint8_t kActivateSession = 0x3A;
constexpr std::size_t kUserNameSize = 16;
constexpr std::size_t kIdSize = 4;
constexpr std::size_t kChallengeSize = 16;

struct Challenge {
    std::uint32_t id;
    Bytes text;
};

Challenge AskChallenge(const LanAccount& account, Conversation& conversation) {
    Format15 outside(account, {});
    Bytes data(account.controller.user.begin(), account.controller.user.end());
    data.resize(kUserNameSize);
    data.insert(data.begin(), IPMI_AUTHENTICATION_TYPE_MD5);
    const IpmiAnswer answer = conversation.Ask(
        outside, {.netFn = kAppNetFn, .command = kGetSessionChallenge, .data = data});
    if (answer.completionCode != kCompleted) {
        throw Refused(account, Step::Challenge, answer.completionCode);
    }
    if (answer.data.size() < kIdSize + kChallengeSize) throw Failure(account, kCutShort);
    const auto text = answer.data.begin() + kIdSize;
    return {.id = ReadNumber(answer.data, 0), .text = Bytes(text, text + kChallengeSize)};
}

IpmiAnswer Activate(const LanAccount& account, Conversation& conversation, Format15& format,
                    const Bytes& data) {
    try {
        const IpmiAnswer answer = conversation.Ask(
            format, {.netFn = kAppNetFn, .command = kActivateSession, .data = data});
        if (answer.completionCode == kCompleted) return answer;
        throw Refused(account, Step::Activation, answer.completionCode);
    } catch (const Silence& silence) {
        if (silence.IsComplete()) throw Failure(account, kPasswordSuspected);
        throw;
    }
}

}  // namespace

std::unique_ptr<LanFormat> LogIn15(const LanAccount& account, Conversation& conversation) {
    const Challenge challenge = AskChallenge(account, conversation);
    Format15 activating(account, {.isAuthenticated = true, .id = challenge.id});
    Bytes data = {IPMI_AUTHENTICATION_TYPE_MD5, account.PrivilegeLevel()};
    data.insert(data.end(), challenge.text.begin(), challenge.text.end());
    AppendNumber(data, RandomId());
    const IpmiAnswer answer = Activate(account, conversation, activating, data);
    constexpr std::size_t kIdPlace = 1;
    constexpr std::size_t kSequencePlace15 = kIdPlace + kIdSize;
    if (answer.data.size() < kSequencePlace15 + kIdSize) throw Failure(account, kCutShort);
    const bool isAuthenticated = answer.data.front() != IPMI_AUTHENTICATION_TYPE_NONE;
    return std::make_unique<Format15>(
        account, Session15{.isAuthenticated = isAuthenticated || account.Has("forcepermsg"),
                           .id = ReadNumber(answer.data, kIdPlace),
                           .sequence = std::max(ReadNumber(answer.data, kSequencePlace15), 1U)});
}

}  // namespace platform::lan
