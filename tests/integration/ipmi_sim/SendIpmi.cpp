// Sends OEM commands to controller 0 through the library, as the module does, and prints one line
// for each: "length 3, code 00, data 01 00", "not delivered" or "no controller". The last line
// tells how many sockets are open that were not before.
//
//     BMCI2C_CONFIG=platform.toml send_ipmi 09 c1
#include <platform/service_processor/SPLibrary.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>

namespace {

constexpr int kBufferSize = 256;

void PrintAnswer(const unsigned char* buffer, int length) {
    std::printf("length %d, code %02x, data", length, buffer[8]);
    for (int index = 9; index < std::min(length + 8, kBufferSize); ++index) {
        std::printf(" %02x", buffer[index]);
    }
    std::printf("\n");
}

void Send(unsigned char command) {
    const std::unique_ptr<SPLibrary> node(SPLibrary::GetSplibraryInstance(0));
    if (!node) {
        std::printf("no controller\n");
        return;
    }
    unsigned char buffer[kBufferSize] = {0x01, 0x20, 0x3A, 0x00, command};
    int length = 250;
    if (node->sendIPMICommand(buffer, &length, kBufferSize, true)) {
        PrintAnswer(buffer, length);
    } else {
        std::printf("not delivered\n");
    }
}

std::ptrdiff_t OpenSockets() {
    const std::filesystem::directory_iterator descriptors("/proc/self/fd");
    return std::count_if(begin(descriptors), end(descriptors), [](const auto& descriptor) {
        std::error_code closed;
        const auto target = std::filesystem::read_symlink(descriptor.path(), closed).native();
        return target.starts_with("socket:");
    });
}

}  // namespace

int main(int count, char** arguments) {
    const std::ptrdiff_t before = OpenSockets();
    for (int index = 1; index < count; ++index) {
        Send(static_cast<unsigned char>(std::strtoul(arguments[index], nullptr, 16)));
    }
    std::printf("sockets left open: %td\n", OpenSockets() - before);
    return 0;
}
