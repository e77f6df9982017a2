#include <platform/service_processor/FreeIpmiContext.h>
#include <platform/service_processor/Hexadecimal.h>
#include <platform/service_processor/TransportError.h>

#include <array>
#include <new>
#include <vector>

namespace platform {

namespace {

// What FreeIPMI takes and gives: the command, then (in an answer) the completion code, then data.
constexpr std::size_t kCommandIndex = 0;
constexpr std::size_t kCodeIndex = 1;
constexpr std::size_t kDataIndex = 2;

// More than a LAN packet or the kernel's driver can carry.
constexpr std::size_t kLongestAnswer = 4096;

}  // namespace

FreeIpmiContext::FreeIpmiContext() : context(ipmi_ctx_create()) {
    if (!context) throw std::bad_alloc();
}

std::optional<IpmiAnswer> FreeIpmiContext::Exchange(const IpmiRequest& request) {
    std::vector<std::uint8_t> sent = {request.command};
    sent.insert(sent.end(), request.data.begin(), request.data.end());
    std::array<std::uint8_t, kLongestAnswer> received{};

    const int length = ipmi_cmd_raw(context.get(), request.lun, request.netFn, sent.data(),
                                    static_cast<unsigned int>(sent.size()), received.data(),
                                    static_cast<unsigned int>(received.size()));
    if (length < 0) return std::nullopt;
    if (static_cast<std::size_t>(length) < kDataIndex) {
        throw TransportError(TroubleCode::UnusableAnswers,
                             "The controller's answer is too short: it has no completion code.",
                             "");
    }
    if (received[kCommandIndex] != request.command) {
        throw TransportError(TroubleCode::UnusableAnswers,
                             "The controller answered another command, " +
                                 Hexadecimal(received[kCommandIndex]) + ".",
                             "");
    }
    IpmiAnswer answer;
    answer.completionCode = received[kCodeIndex];
    answer.data.assign(received.begin() + kDataIndex, received.begin() + length);
    return answer;
}

}  // namespace platform
