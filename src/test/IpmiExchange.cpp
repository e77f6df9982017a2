#include <test/IpmiExchange.h>

#include <span>

namespace {

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

IpmiExchange::IpmiExchange(std::uint8_t oemCommand, int announcedLength)
    : buffer(platform::RequestBuffer(oemCommand)), length(announcedLength) {}

std::string IpmiExchange::DumpRequest() const {
    return "Sending command data: " +
           Hexadecimal(std::span(buffer).first<platform::kRequestSize>());
}

bool IpmiExchange::SendTo(std::unique_ptr<SPLibrary> controller, const SPShare& share) {
    if (controller == nullptr) {
        return false;
    }
    controller->Use(share);
    const bool delivered =
        controller->sendIPMICommand(buffer.data(), &length, static_cast<int>(buffer.size()), true);
    facts = controller->LastExchange();
    return delivered;
}

std::string Dump(const platform::IpmiResponse& response) {
    return "Response length is : " + std::to_string(response.Length()) +
           " Including completion code, received response data is : " +
           Hexadecimal(response.Bytes());
}

std::unique_ptr<SPLibrary> ControllerOfNode(int node, const SPMachine& machine) {
    return std::unique_ptr<SPLibrary>(SPLibrary::GetSplibraryInstance(node, machine));
}
