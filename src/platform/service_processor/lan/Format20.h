// Packets of an RMCP+ session (IPMI 2.0).
#pragma once

#include <platform/service_processor/lan/LanAccount.h>
#include <platform/service_processor/lan/LanFormat.h>
#include <platform/service_processor/lan/SecretBytes.h>

namespace platform::lan {

// FreeIPMI's numbers of a cipher suite's algorithms.
struct CipherAlgorithms {
    std::uint8_t authentication = 0;
    std::uint8_t integrity = 0;
    std::uint8_t confidentiality = 0;
};

// What both sides have negotiated.
struct Session20 {
    CipherAlgorithms algorithms;
    std::uint32_t ownId = 0;
    std::uint32_t controllerId = 0;
    SecretBytes integrityKey;
    SecretBytes confidentialityKey;
};

class Format20 final : public LanFormat {
public:
    // `lanAccount` must outlive the object.
    Format20(const LanAccount& lanAccount, Session20 session20);

    Bytes Pack(const LanMessage& message) override;
    std::variant<Bytes, Flaw> Unpack(ByteView packet) const override;
    std::uint32_t SessionId() const override { return session.controllerId; }

private:
    std::optional<Flaw> FlawOfHeader(ByteView packet) const;
    bool IsAuthenticated() const {
        return session.algorithms.integrity != IPMI_INTEGRITY_ALGORITHM_NONE;
    }
    bool IsEncrypted() const {
        return session.algorithms.confidentiality != IPMI_CONFIDENTIALITY_ALGORITHM_NONE;
    }

    const LanAccount& account;
    const Session20 session;
    std::uint32_t sequence = 0;  // of the last packet
};

}  // namespace platform::lan
