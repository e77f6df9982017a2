#include "FakeKernel.h"

#include <linux/ipmi.h>
#include <platform/service_processor/inband/DeviceCalls.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <cerrno>

#include "FakeClock.h"

namespace {

using std::chrono::milliseconds;

constexpr int kFailed = -1;
constexpr int kFirstDescriptor = 100;

// True when the call must fail; errno says why.
bool Fails(std::deque<int>& errors) {
    if (errors.empty()) return false;
    errno = errors.front();
    errors.pop_front();
    return errno != 0;
}

int Send(int descriptor, const ipmi_req& request) {
    if (Fails(FakeKernel::sendErrors)) return kFailed;
    const auto& address = *reinterpret_cast<const ipmi_system_interface_addr*>(request.addr);
    FakeKernel::requests.push_back(
        {.path = FakeKernel::descriptors.at(descriptor),
         .addressType = address.addr_type,
         .channel = address.channel,
         .lun = address.lun,
         .messageId = request.msgid,
         .netFn = request.msg.netfn,
         .command = request.msg.cmd,
         .data = {request.msg.data, request.msg.data + request.msg.data_len}});
    return 0;
}

int Receive(ipmi_recv& place) {
    if (Fails(FakeKernel::receiveErrors)) return kFailed;
    const FakeKernel::Message message = FakeKernel::messages.front();
    FakeKernel::messages.pop_front();
    const FakeKernel::Request& request = FakeKernel::requests.back();
    const std::size_t fitting = std::min<std::size_t>(message.data.size(), place.msg.data_len);
    place.recv_type = message.kind;
    reinterpret_cast<ipmi_addr*>(place.addr)->addr_type = message.addressType;
    place.msgid = message.messageId.value_or(request.messageId);
    place.msg.netfn = message.netFn.value_or(static_cast<std::uint8_t>(request.netFn + 1));
    place.msg.cmd = message.command.value_or(request.command);
    std::copy_n(message.data.begin(), fitting, place.msg.data);
    place.msg.data_len = static_cast<unsigned short>(fitting);
    if (fitting == message.data.size()) return 0;
    errno = EMSGSIZE;
    return kFailed;
}

}  // namespace

void FakeKernel::Reset() {
    messages.clear();
    requests.clear();
    openErrors.clear();
    sendErrors.clear();
    receiveErrors.clear();
    pollErrors.clear();
    hangsUp = false;
    openFlags = 0;
    descriptors.clear();
}

namespace platform::device_calls {

int Open(const char* path, int flags) {
    FakeKernel::openFlags = flags;
    if (Fails(FakeKernel::openErrors)) return kFailed;
    int descriptor = kFirstDescriptor;
    while (FakeKernel::descriptors.contains(descriptor)) ++descriptor;
    FakeKernel::descriptors[descriptor] = path;
    return descriptor;
}

int Close(int descriptor) { return FakeKernel::descriptors.erase(descriptor) == 1 ? 0 : kFailed; }

int Control(int descriptor, unsigned long request, void* argument) {
    switch (request) {
        case IPMICTL_SEND_COMMAND:
            return Send(descriptor, *static_cast<ipmi_req*>(argument));
        case IPMICTL_RECEIVE_MSG_TRUNC:
            return Receive(*static_cast<ipmi_recv*>(argument));
        default:
            errno = ENOTTY;
            return kFailed;
    }
}

int Poll(pollfd* descriptor, unsigned int, int time) {
    if (Fails(FakeKernel::pollErrors)) return kFailed;
    if (FakeKernel::hangsUp) {
        descriptor->revents = POLLERR;
        return 1;
    }
    const bool comes =
        !FakeKernel::messages.empty() && FakeKernel::messages.front().after <= milliseconds(time);
    FakeClock::Pass(comes ? FakeKernel::messages.front().after : milliseconds(time));
    descriptor->revents = comes ? POLLIN : 0;
    return comes ? 1 : 0;
}

}  // namespace platform::device_calls
