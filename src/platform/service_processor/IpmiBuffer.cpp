#include <platform/service_processor/Hexadecimal.h>
#include <platform/service_processor/IpmiBuffer.h>
#include <platform/service_processor/TransportError.h>

#include <algorithm>

namespace platform {

namespace {

constexpr std::size_t kNetFnIndex = 2;
constexpr std::size_t kLunIndex = 3;
constexpr std::size_t kCommandIndex = 4;

constexpr std::uint8_t kGreatestNetFn = 0x3F;
constexpr std::uint8_t kGreatestLun = 0x03;

// A caller takes a length below this one for an answer cut short and judges that, not the code.
constexpr int kLeastLengthOfFailure = 2;

bool IsRequestNetFn(std::uint8_t netFn) { return netFn <= kGreatestNetFn && netFn % 2 == 0; }

}  // namespace

IpmiRequest ReadRequest(std::span<const unsigned char> buffer) {
    if (buffer.size() < kAnswerDataIndex) {
        throw TransportError(Trouble::Request, "A buffer of " + std::to_string(buffer.size()) +
                                                   " bytes is too small for an IPMI answer; it "
                                                   "takes 256 bytes.");
    }
    IpmiRequest request;
    request.netFn = buffer[kNetFnIndex];
    request.lun = buffer[kLunIndex];
    request.command = buffer[kCommandIndex];
    if (!IsRequestNetFn(request.netFn)) {
        throw TransportError(Trouble::Request, "The network function " +
                                                   Hexadecimal(request.netFn) +
                                                   " is not one of a request; those are even and "
                                                   "at most 0x3e.");
    }
    if (request.lun > kGreatestLun) {
        throw TransportError(Trouble::Request, "The logical unit " + Hexadecimal(request.lun) +
                                                   " does not exist; the greatest is 0x03.");
    }
    return request;
}

int WriteAnswer(const IpmiAnswer& answer, std::span<unsigned char> buffer) {
    const std::span<unsigned char> room = buffer.subspan(kAnswerDataIndex);
    const std::size_t fitting = std::min(room.size(), answer.data.size());

    buffer[kCompletionCodeIndex] = answer.completionCode;
    std::fill(std::copy_n(answer.data.begin(), fitting, room.begin()), room.end(),
              static_cast<unsigned char>(0));

    if (answer.length) return *answer.length;
    const int length = 1 + static_cast<int>(answer.data.size());
    return answer.completionCode == kCompleted ? length : std::max(length, kLeastLengthOfFailure);
}

}  // namespace platform
