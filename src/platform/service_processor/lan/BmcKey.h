// The key K_G of a controller, which both sides of a session use beside the password.
#pragma once

#include <platform/service_processor/lan/SecretBytes.h>

#include <string>

namespace platform::lan {

class BmcKey {
public:
    // `file` holds it in its first line: "0x" and up to 40 hexadecimal digits, or a text of up to
    // 20 bytes. An empty name: no key. Throws TransportError, as Password does.
    explicit BmcKey(const std::string& file);

    // Null and 0 when there is none.
    const void* Data() const { return bytes.Data(); }
    unsigned int Length() const { return bytes.Length(); }

private:
    SecretBytes bytes;
};

}  // namespace platform::lan
