#include <test/IpmiExchange.h>

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t kCompletionCodeIndex = 8;
constexpr std::size_t kFirstDataIndex = 9;

// Two lower-case hexadecimal digits and a blank for each byte.
std::string Hexadecimal(std::span<const std::uint8_t> bytes) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 3);
    for (const std::uint8_t byte : bytes) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0xF];
        text += ' ';
    }
    return text;
}

}  // namespace

std::uint8_t IpmiResponse::CompletionCode() const { return buffer[kCompletionCodeIndex]; }

std::span<const std::uint8_t> IpmiResponse::Bytes() const {
    if (length < 0) {
        return {};
    }
    const std::size_t announced = static_cast<std::size_t>(length) + kFirstDataIndex;
    return std::span(buffer).first(std::min(announced, buffer.size()));
}

std::span<const std::uint8_t> IpmiResponse::Data() const {
    const std::span<const std::uint8_t> bytes = Bytes();
    return bytes.subspan(std::min(kFirstDataIndex, bytes.size()));
}

std::uint8_t IpmiResponse::DataByte(std::size_t position) const {
    return buffer.at(kFirstDataIndex + position);
}

std::string IpmiResponse::Dump() const {
    return "Response length is : " + std::to_string(length) +
           " Including completion code, received response data is : " + Hexadecimal(Bytes());
}

IpmiExchange::IpmiExchange(OemCommand command, int announcedLength) : length(announcedLength) {
    const IpmiRequest request{.command = command};
    std::memcpy(buffer.data(), &request, sizeof request);
}

std::string IpmiExchange::DumpRequest() const {
    return "Sending command data: " + Hexadecimal(std::span(buffer).first<sizeof(IpmiRequest)>());
}

bool IpmiExchange::SendTo(std::unique_ptr<SPLibrary> controller) {
    return controller != nullptr &&
           controller->sendIPMICommand(buffer.data(), &length, static_cast<int>(buffer.size()),
                                       true);
}

std::unique_ptr<SPLibrary> ControllerOfNode(int node) {
    return std::unique_ptr<SPLibrary>(SPLibrary::GetSplibraryInstance(node));
}
