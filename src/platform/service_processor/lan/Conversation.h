// IPMI messages of one session, one after the other.
#pragma once

#include <platform/service_processor/lan/LanFormat.h>
#include <platform/service_processor/lan/LanTrouble.h>

namespace platform::lan {

class Conversation {
public:
    // Both must outlive the object.
    Conversation(const LanAccount& lanAccount, LanChannel& lanChannel)
        : account(lanAccount), channel(lanChannel) {}

    // The answer to the command that the session is for. Throws as LanChannel::Exchange().
    IpmiAnswer Ask(LanFormat& format, const IpmiRequest& request) {
        return Ask(format, request, LanChannel::Patience::Most);
    }

    // The data of the answer to a step of the opening. Throws LanFailure when the controller
    // refuses the step, or has fewer bytes than `least` in its answer.
    Bytes AskStep(LanFormat& format, Step step, const IpmiRequest& request, std::size_t least = 0);

    // As LanChannel::Finish().
    void End(LanFormat& format, const IpmiRequest& request);

    // Sends once, and waits for nothing.
    void Abandon(LanFormat& format, const IpmiRequest& request);

private:
    IpmiAnswer Ask(LanFormat& format, const IpmiRequest& request, LanChannel::Patience patience);
    LanMessage Next(const IpmiRequest& request) { return {request, ++sequence}; }
    LanChannel::Read Reader(const LanFormat& format, const LanMessage& message,
                            IpmiAnswer& answer) const;

    const LanAccount& account;
    LanChannel& channel;
    std::uint8_t sequence = 0;  // of the last request
};

}  // namespace platform::lan
