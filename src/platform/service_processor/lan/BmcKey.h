// The key K_G of a controller, which both sides of a session use in addition to the password.
#pragma once

#include <platform/service_processor/lan/SecretBytes.h>

#include <string>

namespace platform::lan {

// `file` holds it in its first line: "0x" and up to 40 hexadecimal digits, or a text of up to 20
// bytes. An empty name: no key, and no bytes. Throws TransportError, as Password does.
SecretBytes ReadBmcKey(const std::string& file);

}  // namespace platform::lan
