// Writes an XML document from left to right.
//
//     XmlWriter xml;
//     const auto element = xml.Open("KEYBINDING", {{"NAME", key.name}});
//     xml.TextElement("VALUE", "a < b");
//
// An element ends when the object that Open() returned goes out of scope.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace cimxml {

struct Attribute {
    std::string_view name;
    std::string_view value;
    bool isWritten = true;
};

class XmlWriter {
public:
    class [[nodiscard]] Element {
    public:
        Element(XmlWriter& xmlWriter, std::string_view elementName)
            : writer(xmlWriter), name(elementName) {}
        ~Element() { writer.Close(name); }
        Element(const Element&) = delete;
        Element& operator=(const Element&) = delete;

    private:
        XmlWriter& writer;
        const std::string_view name;
    };

    using Attributes = std::initializer_list<Attribute>;

    // The name must outlive the element.
    Element Open(std::string_view name, Attributes attributes = {});

    // An element without content, or with text only.
    void EmptyElement(std::string_view name, Attributes attributes = {});
    void TextElement(std::string_view name, std::string_view text);

    // A character that XML cannot carry is written as U+FFFD.
    void Text(std::string_view text);

    // Adds text that is already XML.
    void Raw(std::string_view markup) { document += markup; }

    std::string Take() { return std::move(document); }

private:
    void Begin(std::string_view name, Attributes attributes);
    void Close(std::string_view name);

    std::string document;
};

}  // namespace cimxml
