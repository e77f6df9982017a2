#include <platform/service_processor/lan/Conversation.h>

namespace platform::lan {

LanMessage Conversation::Next(const IpmiRequest& request) {
    return {.request = request, .sequence = ++sequence};
}

std::variant<IpmiAnswer, Flaw> Conversation::Read(const LanFormat& format, ByteView packet,
                                                  const LanMessage& message) const {
    const std::variant<Bytes, Flaw> payload = format.Unpack(packet);
    if (const Flaw* flaw = std::get_if<Flaw>(&payload)) return *flaw;
    return ReadAnswer(std::get<Bytes>(payload), message, !account.Has("nochecksumcheck"));
}

IpmiAnswer Conversation::Ask(LanFormat& format, const IpmiRequest& request) {
    const LanMessage message = Next(request);
    IpmiAnswer answer;
    channel.Exchange([&] { return format.Pack(message); },
                     [&](ByteView packet) -> std::optional<Flaw> {
                         std::variant<IpmiAnswer, Flaw> read = Read(format, packet, message);
                         if (const Flaw* flaw = std::get_if<Flaw>(&read)) return *flaw;
                         answer = std::get<IpmiAnswer>(std::move(read));
                         return std::nullopt;
                     });
    return answer;
}

void Conversation::Tell(LanFormat& format, const IpmiRequest& request, bool waits) {
    const LanMessage message = Next(request);
    const auto pack = [&] { return format.Pack(message); };
    if (!waits) {
        channel.Send(pack());
        return;
    }
    channel.Finish(pack, [&](ByteView packet) -> std::optional<Flaw> {
        const std::variant<IpmiAnswer, Flaw> read = Read(format, packet, message);
        const Flaw* flaw = std::get_if<Flaw>(&read);
        return flaw == nullptr ? std::nullopt : std::optional(*flaw);
    });
}

}  // namespace platform::lan
