#include <platform/service_processor/lan/Bytes.h>
#include <sys/random.h>

#include <cerrno>
#include <system_error>

namespace platform::lan {

// Up to 256 bytes come whole, says the system.
Bytes RandomBytes(std::size_t count) {
    Bytes bytes(count);
    if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
        throw std::system_error(errno, std::generic_category(), "getrandom");
    }
    return bytes;
}

std::uint32_t RandomId() {
    const std::uint32_t id = ReadNumber(RandomBytes(4), 0);
    return id == 0 ? 1 : id;
}

}  // namespace platform::lan
