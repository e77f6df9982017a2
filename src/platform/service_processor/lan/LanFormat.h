// How a session packs its IPMI messages.
#pragma once

#include <platform/service_processor/lan/LanMessage.h>

namespace platform::lan {

class LanFormat {
public:
    LanFormat() = default;
    LanFormat(const LanFormat&) = delete;
    LanFormat& operator=(const LanFormat&) = delete;
    virtual ~LanFormat() = default;

    // A packet with a session sequence number of its own.
    virtual Bytes Pack(const LanMessage& message) = 0;

    // The message in the packet, or why the packet is not one of this session.
    virtual std::variant<Bytes, Flaw> Unpack(ByteView packet) const = 0;

    // The session's number in the controller, little endian, as Close Session names it.
    virtual std::uint32_t SessionId() const = 0;
};

}  // namespace platform::lan
