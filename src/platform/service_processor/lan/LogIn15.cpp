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

// In the answer to Activate Session.
constexpr std::size_t kIdPlace = 1;
constexpr std::size_t kSequencePlace15 = kIdPlace + kIdSize;

struct Challenge {
    std::uint32_t id;
    Bytes text;
};

Challenge AskChallenge(const LanAccount& account, Conversation& conversation) {
    Format15 outside(account, {});
    Bytes data(account.controller.user.begin(), account.controller.user.end());
    data.resize(kUserNameSize);
    data.insert(data.begin(), IPMI_AUTHENTICATION_TYPE_MD5);
    const Bytes answer =
        conversation.AskStep(outside, Step::Challenge,
                             {.netFn = kAppNetFn, .command = kGetSessionChallenge, .data = data},
                             kIdSize + kChallengeSize);
    const auto text = answer.begin() + kIdSize;
    return {.id = ReadNumber(answer, 0), .text = Bytes(text, text + kChallengeSize)};
}

Bytes Activate(const LanAccount& account, Conversation& conversation, Format15& format,
               const Bytes& data) {
    try {
        return conversation.AskStep(format, Step::Activation,
                                    {.netFn = kAppNetFn, .command = kActivateSession, .data = data},
                                    kSequencePlace15 + kIdSize);
    } catch (const NoResponse& noResponse) {
        if (noResponse.IsComplete()) throw Failure(account, kPasswordSuspected);
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
    const Bytes answer = Activate(account, conversation, activating, data);
    const bool isAuthenticated = answer.front() != IPMI_AUTHENTICATION_TYPE_NONE;
    return std::make_unique<Format15>(
        account, Session15{.isAuthenticated = isAuthenticated || account.Has("forcepermsg"),
                           .id = ReadNumber(answer, kIdPlace),
                           .sequence = std::max(ReadNumber(answer, kSequencePlace15), 1U)});
}

}  // namespace platform::lan
