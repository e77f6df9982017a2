#include <platform/service_processor/CompletionCode.h>
#include <platform/service_processor/IpmiMessage.h>

namespace platform {

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
