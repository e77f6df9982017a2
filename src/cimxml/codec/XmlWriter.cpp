#include <cimxml/codec/Utf8.h>
#include <cimxml/codec/XmlWriter.h>

namespace cimxml {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

// The character reference for a character that must be escaped in a text or attribute; empty for
// others. Line ends and tabs are escaped because readers normalise them.
std::string_view ReferenceFor(char letter) {
    switch (letter) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\t':
            return "&#9;";
        case '\n':
            return "&#10;";
        case '\r':
            return "&#13;";
        default:
            return {};
    }
}

bool IsPlain(char letter) { return letter >= ' ' && letter <= '~' && ReferenceFor(letter).empty(); }

}  // namespace

void XmlWriter::Text(std::string_view text) {
    while (!text.empty()) {
        std::size_t plain = 0;
        while (plain < text.size() && IsPlain(text[plain])) ++plain;
        document += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty()) return;
        const std::size_t length = CharacterLength(text);
        if (const std::string_view reference = ReferenceFor(text.front()); !reference.empty())
            document += reference;
        else
            document += length == 0 ? kReplacement : text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
}

void XmlWriter::Begin(std::string_view name, Attributes attributes) {
    document += '<';
    document += name;
    for (const Attribute& attribute : attributes) {
        if (!attribute.isWritten) continue;
        document += ' ';
        document += attribute.name;
        document += "=\"";
        Text(attribute.value);
        document += '"';
    }
}

XmlWriter::Element XmlWriter::Open(std::string_view name, Attributes attributes) {
    Begin(name, attributes);
    document += '>';
    return {*this, name};
}

void XmlWriter::Close(std::string_view name) {
    document += "</";
    document += name;
    document += '>';
}

void XmlWriter::EmptyElement(std::string_view name, Attributes attributes) {
    Begin(name, attributes);
    document += "/>";
}

void XmlWriter::TextElement(std::string_view name, std::string_view text) {
    const auto element = Open(name);
    Text(text);
}

}  // namespace cimxml
