#include <platform/service_processor/InWords.h>
#include <platform/service_processor/IpmiBuffer.h>
#include <platform/service_processor/TransportError.h>

#include <algorithm>

namespace platform {

namespace {

constexpr std::size_t kHeaderIndex = 0;
constexpr std::size_t kResponderIndex = 1;
constexpr std::size_t kNetFnIndex = 2;
constexpr std::size_t kLunIndex = 3;
constexpr std::size_t kCommandIndex = 4;
constexpr std::size_t kCompletionCodeIndex = 8;
constexpr std::size_t kFirstDataIndex = 9;

constexpr std::uint8_t kHeader = 0x01;
constexpr std::uint8_t kController = 0x20;

constexpr std::uint8_t kGreatestNetFn = 0x3F;
constexpr std::uint8_t kGreatestLun = 0x03;

// A caller takes a length below this one for an answer cut short and judges that, not the code.
constexpr int kLeastLengthOfFailure = 2;

bool IsRequestNetFn(std::uint8_t netFn) { return netFn <= kGreatestNetFn && netFn % 2 == 0; }

}  // namespace

IpmiBuffer RequestBuffer(std::uint8_t oemCommand) {
    IpmiBuffer buffer{};
    buffer[kHeaderIndex] = kHeader;
    buffer[kResponderIndex] = kController;
    buffer[kNetFnIndex] = kOemNetFn;
    buffer[kCommandIndex] = oemCommand;
    return buffer;
}

IpmiRequest ReadRequest(std::span<const unsigned char> buffer) {
    if (buffer.size() < kFirstDataIndex) {
        throw TransportError(TroubleCode::Request,
                             "A buffer of " + std::to_string(buffer.size()) +
                                 " bytes is too small for an IPMI answer; it takes 256 bytes.",
                             "");
    }
    IpmiRequest request;
    request.netFn = buffer[kNetFnIndex];
    request.lun = buffer[kLunIndex];
    request.command = buffer[kCommandIndex];
    if (!IsRequestNetFn(request.netFn)) {
        throw TransportError(TroubleCode::Request,
                             "The network function " + Hexadecimal(request.netFn) +
                                 " is not one of a request; those are even and at most 0x3e.",
                             "");
    }
    if (request.lun > kGreatestLun) {
        throw TransportError(TroubleCode::Request,
                             "The logical unit " + Hexadecimal(request.lun) +
                                 " does not exist; the greatest is 0x03.",
                             "");
    }
    return request;
}

int WriteAnswer(const IpmiAnswer& answer, std::span<unsigned char> buffer) {
    const std::span<unsigned char> room = buffer.subspan(kFirstDataIndex);
    const std::size_t fitting = std::min(room.size(), answer.data.size());

    buffer[kCompletionCodeIndex] = answer.completionCode;
    std::fill(std::copy_n(answer.data.begin(), fitting, room.begin()), room.end(),
              static_cast<unsigned char>(0));

    if (answer.length) return *answer.length;
    const int length = 1 + static_cast<int>(answer.data.size());
    return answer.completionCode == kCompleted ? length : std::max(length, kLeastLengthOfFailure);
}

std::uint8_t IpmiResponse::CompletionCode() const { return buffer[kCompletionCodeIndex]; }

bool IpmiResponse::IsCut() const {
    constexpr std::size_t kLongest = 1 + std::tuple_size_v<IpmiBuffer> - kFirstDataIndex;
    return length > static_cast<int>(kLongest);
}

std::span<const std::uint8_t> IpmiResponse::Bytes() const {
    if (length < 0) return {};
    const std::size_t announced = static_cast<std::size_t>(length) + kFirstDataIndex;
    return std::span(buffer).first(std::min(announced, buffer.size()));
}

std::span<const std::uint8_t> IpmiResponse::Data() const {
    const std::span<const std::uint8_t> bytes = Bytes();
    return bytes.subspan(std::min(kFirstDataIndex, bytes.size()));
}

std::span<const std::uint8_t> IpmiResponse::ControllerData() const {
    const std::span<const std::uint8_t> data = Data();
    const bool endsBehind = !data.empty() && data.size() == static_cast<std::size_t>(length);
    return endsBehind && data.back() == 0 ? data.first(data.size() - 1) : data;
}

std::uint8_t IpmiResponse::DataByte(std::size_t position) const {
    return buffer.at(kFirstDataIndex + position);
}

}  // namespace platform
