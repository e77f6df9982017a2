// IPMI messages of one session, one after the other.
#pragma once

#include <platform/service_processor/lan/LanAccount.h>
#include <platform/service_processor/lan/LanChannel.h>
#include <platform/service_processor/lan/LanFormat.h>

namespace platform::lan {

class Conversation {
public:
    // Both must outlive the object.
    Conversation(const LanAccount& lanAccount, LanChannel& lanChannel)
        : account(lanAccount), channel(lanChannel) {}

    // As LanChannel::Exchange().
    IpmiAnswer Ask(LanFormat& format, const IpmiRequest& request);

    // Sends once, and waits for a moment when `waits`.
    void Tell(LanFormat& format, const IpmiRequest& request, bool waits);

private:
    LanMessage Next(const IpmiRequest& request);
    std::variant<IpmiAnswer, Flaw> Read(const LanFormat& format, ByteView packet,
                                        const LanMessage& message) const;

    const LanAccount& account;
    LanChannel& channel;
    std::uint8_t sequence = 0;  // of the last request
};

}  // namespace platform::lan
