#include <fcntl.h>
#include <linux/ipmi.h>
#include <platform/service_processor/TransportError.h>
#include <platform/service_processor/inband/DeviceCalls.h>
#include <platform/service_processor/inband/IpmiDevice.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <system_error>

namespace platform {

namespace {

std::string Reason(int error) { return std::generic_category().message(error); }

TransportError Gone(const std::string& path, int error) {
    return {TroubleCode::Gone, "The device " + path + " has gone: " + Reason(error) + ".",
            "Is its kernel module (such as ipmi_si) loaded?"};
}

bool IsMissing(int error) { return error == ENOENT || error == ENXIO || error == ENODEV; }

TransportError OpenTrouble(const std::string& path, DevicePresence presence, int error) {
    if (presence == DevicePresence::Found && IsMissing(error)) return Gone(path, error);
    const std::string refused = "The device " + path + " cannot be opened: " + Reason(error) + ".";
    switch (error) {
        case EACCES:
        case EPERM:
            return {TroubleCode::Permission, refused,
                    "Run as root, or as a user who may read and write it."};
        case EBUSY:
            return {TroubleCode::DeviceBusy, refused,
                    "Too many programs use it: end one of them, or try again."};
        default:
            return {TroubleCode::NoDevice, refused,
                    "Check the setting device, and that the kernel module ipmi_devintf is loaded."};
    }
}

TransportError UseTrouble(const std::string& path, int error) {
    switch (error) {
        case ENODEV:
        case ENXIO:
            return Gone(path, error);
        case EBUSY:
            return {TroubleCode::DeviceBusy,
                    "The kernel's driver behind " + path + " is busy: " + Reason(error) + ".",
                    "Try again."};
        case ENOTTY:
        case EINVAL:
            return {
                TroubleCode::Other,
                "The device " + path + " does not work as an IPMI device: " + Reason(error) + ".",
                "Check that it belongs to the kernel module ipmi_devintf."};
        default:
            return {TroubleCode::Other,
                    "The request to " + path + " failed: " + Reason(error) + ".", kRetryAdvice};
    }
}

template <class Call>
int Repeated(Call call) {
    int result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

// Poll interval of the stop flag.
constexpr std::chrono::milliseconds kStopCheck{100};

// At least 0, at most what poll takes. Rounded up, so that poll never ends too early.
int PollTime(Time end) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Now()).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, INT_MAX));
}

}  // namespace

IpmiDevice::IpmiDevice(const std::string& devicePath, DevicePresence presence)
    : path(devicePath), descriptor(Repeated([&] {
          return device_calls::Open(devicePath.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK);
      })) {
    if (descriptor < 0) throw OpenTrouble(path, presence, errno);
}

IpmiDevice::~IpmiDevice() { device_calls::Close(descriptor); }

void IpmiDevice::Send(const IpmiRequest& request, long messageId) {
    ipmi_system_interface_addr controller{};
    controller.addr_type = IPMI_SYSTEM_INTERFACE_ADDR_TYPE;
    controller.channel = IPMI_BMC_CHANNEL;
    controller.lun = request.lun;

    std::vector<std::uint8_t> data = request.data;
    ipmi_req message{};
    message.addr = reinterpret_cast<unsigned char*>(&controller);
    message.addr_len = sizeof controller;
    message.msgid = messageId;
    message.msg.netfn = request.netFn;
    message.msg.cmd = request.command;
    message.msg.data_len = static_cast<unsigned short>(data.size());
    message.msg.data = data.data();

    if (Repeated([&] {
            return device_calls::Control(descriptor, IPMICTL_SEND_COMMAND, &message);
        }) < 0) {
        throw UseTrouble(path, errno);
    }
}

std::optional<IpmiDevice::Message> IpmiDevice::Receive(Time end, const std::atomic<bool>* stop) {
    std::array<unsigned char, IPMI_MAX_MSG_LENGTH> data{};
    ipmi_addr sender{};
    while (WaitForMessage(end, stop)) {
        ipmi_recv received{};
        received.addr = reinterpret_cast<unsigned char*>(&sender);
        received.addr_len = sizeof sender;
        received.msg.data = data.data();
        received.msg.data_len = static_cast<unsigned short>(data.size());
        const int result = device_calls::Control(descriptor, IPMICTL_RECEIVE_MSG_TRUNC, &received);
        // EMSGSIZE: what did not fit is cut, all else is there.
        if (result >= 0 || errno == EMSGSIZE) {
            const auto length = std::min<std::size_t>(received.msg.data_len, data.size());
            return Message{.isAnswer = received.recv_type == IPMI_RESPONSE_RECV_TYPE,
                           .isFromController = sender.addr_type == IPMI_SYSTEM_INTERFACE_ADDR_TYPE,
                           .messageId = received.msgid,
                           .netFn = received.msg.netfn,
                           .command = received.msg.cmd,
                           .data = {data.begin(), data.begin() + static_cast<long>(length)}};
        }
        if (errno != EAGAIN && errno != EINTR) throw UseTrouble(path, errno);
    }
    return std::nullopt;
}

// False when the time is over, or `stop` is true.
bool IpmiDevice::WaitForMessage(Time end, const std::atomic<bool>* stop) {
    pollfd waiting{.fd = descriptor, .events = POLLIN, .revents = 0};
    while (Now() <= end) {
        if (stop != nullptr && *stop) return false;
        const int time = PollTime(stop == nullptr ? end : std::min(end, Now() + kStopCheck));
        const int ready = device_calls::Poll(&waiting, 1, time);
        if (ready > 0 && (waiting.revents & POLLIN) != 0) return true;
        if (ready > 0) throw UseTrouble(path, ENODEV);
        if (ready < 0 && errno != EINTR) throw UseTrouble(path, errno);
        if (time == 0) break;
    }
    return false;
}

}  // namespace platform
