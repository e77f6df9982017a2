#include <platform/service_processor/lan/Conversation.h>

#include <utility>

namespace platform::lan {

// Reads an answer to the message into `answer`; all must outlive the reader.
LanChannel::Read Conversation::Reader(const LanFormat& format, const LanMessage& message,
                                      IpmiAnswer& answer) const {
    return [&](ByteView packet) -> std::optional<Flaw> {
        const std::variant<Bytes, Flaw> payload = format.Unpack(packet);
        if (const Flaw* flaw = std::get_if<Flaw>(&payload)) return *flaw;
        return ReadAnswer(std::get<Bytes>(payload), message, !account.Has("nochecksumcheck"),
                          answer);
    };
}

IpmiAnswer Conversation::Ask(LanFormat& format, const IpmiRequest& request,
                             LanChannel::Patience patience) {
    const LanMessage message = Next(request);
    IpmiAnswer answer;
    channel.Exchange([&] { return format.Pack(message); }, Reader(format, message, answer),
                     patience);
    return answer;
}

Bytes Conversation::AskStep(LanFormat& format, Step step, const IpmiRequest& request,
                            std::size_t least) {
    IpmiAnswer answer = Ask(format, request, LanChannel::Patience::Short);
    if (answer.completionCode != kCompleted) throw Refused(account, step, answer.completionCode);
    if (answer.data.size() < least) throw Failure(account, kCutShort);
    return std::move(answer.data);
}

void Conversation::End(LanFormat& format, const IpmiRequest& request) {
    const LanMessage message = Next(request);
    IpmiAnswer unused;
    channel.Finish([&] { return format.Pack(message); }, Reader(format, message, unused));
}

void Conversation::Abandon(LanFormat& format, const IpmiRequest& request) {
    channel.Send(format.Pack(Next(request)));
}

}  // namespace platform::lan
