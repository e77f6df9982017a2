#include <platform/service_processor/InWords.h>
#include <platform/service_processor/IpmiMessage.h>

namespace platform {

std::string HexadecimalDigits(std::uint8_t byte) {
    constexpr char kDigits[] = "0123456789abcdef";
    return {kDigits[byte >> 4], kDigits[byte & 0x0F]};
}

std::string Hexadecimal(std::uint8_t byte) { return "0x" + HexadecimalDigits(byte); }

std::string InSeconds(std::chrono::milliseconds time) {
    const auto tenths = (time.count() + 50) / 100;
    std::string text = std::to_string(tenths / 10);
    if (tenths % 10 != 0) text += "." + std::to_string(tenths % 10);
    return text + " s";
}

std::string Meaning(std::uint8_t completionCode) {
    switch (completionCode) {
        case kCompleted:
            return "";
        case kNodeBusy:
        case kControllerBusy:
            return " (the controller is busy)";
        case kInvalidCommand:
            return " (the controller does not know the command)";
        case kTimeOver:
            return " (the controller did not answer the command in time)";
        case kStarting:
            return " (the controller is still starting)";
        case kInsufficientPrivilege:
            return " (the user's privilege level is too low for the command)";
        default:
            return " (the controller could not carry out the command)";
    }
}

}  // namespace platform
