#include <cimxml/access/Quoted.h>

namespace cimxml {

std::string Quoted(std::string_view text) {
    constexpr const char* kDigits = "0123456789abcdef";
    std::string quoted = "'";
    for (const char letter : text) {
        const auto byte = static_cast<unsigned char>(letter);
        if (letter == '\'' || letter == '\\')
            quoted.append(1, '\\').append(1, letter);
        else if (byte >= ' ' && byte < 0x7F)
            quoted += letter;
        else
            quoted.append("\\x").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 0xF]);
    }
    return quoted + "'";
}

}  // namespace cimxml
