#include <mof/Characters.h>

namespace mof {

Characters::Characters(std::string_view content, const std::string& fileName)
    : text(content), place{std::make_shared<const std::string>(fileName)} {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) {
        offset = kByteOrderMark.size();
    }
}

char Characters::Peek(std::size_t ahead) const {
    return ahead < text.size() - offset ? text[offset + ahead] : '\0';
}

char Characters::Take() {
    if (AtEnd()) {
        return '\0';
    }
    const char taken = text[offset++];
    const bool continuesCharacter = (static_cast<unsigned char>(taken) & 0xC0) == 0x80;
    if (taken == '\n') {
        ++place.line;
        place.column = 1;
    } else if (!continuesCharacter) {
        ++place.column;
    }
    return taken;
}

void Characters::Skip(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        Take();
    }
}

}  // namespace mof
