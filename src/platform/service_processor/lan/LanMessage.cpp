#include <platform/service_processor/lan/LanMessage.h>
#include <platform/service_processor/lan/LanTrouble.h>

#include <numeric>

namespace platform::lan {

namespace {

constexpr unsigned int kByte = 8;  // bits
constexpr unsigned int kLongestData = 4096;

fiid_field_t rawMessage[] = {
    {kByte, "cmd", FIID_FIELD_REQUIRED | FIID_FIELD_LENGTH_FIXED},
    {kByte * kLongestData, "data", FIID_FIELD_OPTIONAL | FIID_FIELD_LENGTH_VARIABLE},
    {0, "", 0},
};

// Where the parts of an answer are.
enum Place : std::size_t {
    kNetFnPlace = 1,
    kResponderPlace = 3,
    kSequencePlace = 4,
    kCommandPlace = 5,
    kCodePlace = 6,
    kDataPlace = 7,
};
constexpr std::size_t kHeaderSize = 3;  // with its checksum
constexpr std::size_t kTrailerSize = 1;
static_assert(kShortestAnswer == kDataPlace + kTrailerSize);
constexpr std::uint8_t kAnswerBit = 0x01;
constexpr int kLunBits = 2;

bool HasGoodChecksum(ByteView bytes) {
    return std::accumulate(bytes.begin(), bytes.end(), 0U) % 0x100 == 0;
}

}  // namespace

FiidObject MessageHeader(const LanMessage& message) {
    FiidObject header(tmpl_lan_msg_hdr_rq);
    fill_lan_msg_hdr(IPMI_SLAVE_ADDRESS_BMC, message.request.netFn, message.request.lun,
                     message.sequence, header.Get());
    return header;
}

FiidObject MessageBody(const LanMessage& message) {
    FiidObject body(rawMessage);
    fiid_obj_set(body.Get(), "cmd", message.request.command);
    if (!message.request.data.empty()) body.SetData("data", message.request.data);
    return body;
}

Bytes Assembled(Bytes packet, int length) {
    if (length < 0) {
        throw LanFailure{.code = TroubleCode::Request,
                         .text = "FreeIPMI cannot make a packet of the request.",
                         .advice = ""};
    }
    packet.resize(static_cast<std::size_t>(length));
    return packet;
}

FiidObject AnswerBody() { return FiidObject(rawMessage); }

std::optional<Flaw> ReadAnswer(ByteView payload, const LanMessage& message, bool checksChecksums,
                               IpmiAnswer& answer) {
    if (payload.size() < kShortestAnswer) return Flaw::TooShort;
    if (checksChecksums && !(HasGoodChecksum(payload.first(kHeaderSize)) &&
                             HasGoodChecksum(payload.subspan(kHeaderSize)))) {
        return Flaw::Checksum;
    }
    const int sequence = payload[kSequencePlace] >> kLunBits;
    if (sequence < message.sequence) return Flaw::Late;
    if (sequence != message.sequence) return Flaw::Sequence;
    if (payload[kResponderPlace] != IPMI_SLAVE_ADDRESS_BMC) return Flaw::Responder;
    if (payload[kNetFnPlace] >> kLunBits != (message.request.netFn | kAnswerBit)) {
        return Flaw::NetworkFunction;
    }
    if (payload[kCommandPlace] != message.request.command) return Flaw::Command;
    answer.completionCode = payload[kCodePlace];
    answer.data.assign(payload.begin() + kDataPlace, payload.end() - kTrailerSize);
    return std::nullopt;
}

}  // namespace platform::lan
