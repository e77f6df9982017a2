// Packets of IPMI 1.5, which also carry the messages before a session of IPMI 2.0.
#pragma once

#include <platform/service_processor/lan/LanAccount.h>
#include <platform/service_processor/lan/LanFormat.h>

namespace platform::lan {

// The session's parameters from the controller.
struct Session15 {
    bool isAuthenticated = false;  // by MD5
    std::uint32_t id = 0;
    std::uint32_t sequence = 0;  // of the next packet; 0 outside of a session, and then always 0
};

class Format15 final : public LanFormat {
public:
    // `lanAccount` must outlive the object.
    Format15(const LanAccount& lanAccount, const Session15& session15);

    Bytes Pack(const LanMessage& message) override;
    std::variant<Bytes, Flaw> Unpack(ByteView packet) const override;
    std::uint32_t SessionId() const override { return session.id; }

private:
    std::optional<Flaw> FlawOfHeader(ByteView packet) const;
    std::uint32_t NextSequence();

    const LanAccount& account;
    Session15 session;
};

}  // namespace platform::lan
