#include <platform/service_processor/DeviceId.h>
#include <platform/service_processor/InWords.h>
#include <platform/service_processor/TransportError.h>

namespace platform {

namespace {

// Bytes of the answer, in the order of the IPMI specification.
constexpr std::size_t kDevice = 0;
constexpr std::size_t kFirmwareMajor = 2;  // bit 7 says something else
constexpr std::size_t kFirmwareMinor = 3;  // two decimal digits
constexpr std::size_t kManufacturer = 6;   // three bytes, the lowest first
constexpr std::size_t kProduct = 9;        // two bytes, the lowest first
constexpr std::size_t kLeastBytes = 11;

constexpr std::uint8_t kFirmwareMajorBits = 0x7F;
constexpr std::uint32_t kManufacturerBits = 0xFFFFF;

std::string FirmwareText(std::uint8_t major, std::uint8_t minor) {
    return std::to_string(major & kFirmwareMajorBits) + "." + HexadecimalDigits(minor);
}

TransportError Refusal(std::uint8_t completionCode) {
    const bool isBusy = completionCode == kNodeBusy || completionCode == kControllerBusy;
    return {isBusy ? TroubleCode::Busy : TroubleCode::Refused,
            "The controller answered Get Device ID with completion code " +
                Hexadecimal(completionCode) + Meaning(completionCode) + ".",
            isBusy
                ? "Wait a while, then try again."
                : "Every controller knows this command: try again, and restart the controller if "
                  "that does not help."};
}

}  // namespace

DeviceId ReadDeviceId(const IpmiAnswer& answer) {
    if (answer.completionCode != kCompleted) throw Refusal(answer.completionCode);
    const std::vector<std::uint8_t>& data = answer.data;
    if (data.size() < kLeastBytes) {
        throw TransportError(TroubleCode::UnusableAnswers,
                             "The controller's answer to Get Device ID is too short: it has " +
                                 std::to_string(data.size()) + " data bytes instead of " +
                                 std::to_string(kLeastBytes) + ".",
                             "Restart the controller, or update its firmware.");
    }
    DeviceId id;
    id.device = data[kDevice];
    id.firmware = FirmwareText(data[kFirmwareMajor], data[kFirmwareMinor]);
    id.manufacturer =
        (data[kManufacturer] | static_cast<std::uint32_t>(data[kManufacturer + 1]) << 8 |
         static_cast<std::uint32_t>(data[kManufacturer + 2]) << 16) &
        kManufacturerBits;
    id.product = static_cast<std::uint16_t>(data[kProduct] | data[kProduct + 1] << 8);
    return id;
}

}  // namespace platform
