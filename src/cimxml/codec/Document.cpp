#include <cimxml/codec/Document.h>
#include <cimxml/codec/WellFormed.h>

#include <utility>

namespace cimxml {

namespace {

constexpr int kBadRequest = 400;

constexpr unsigned int kParseOptions = pugi::parse_default | pugi::parse_ws_pcdata_single;

Node SkipToElement(Node node) {
    while (node && node.type() != pugi::node_element) node = node.next_sibling();
    return node;
}

}  // namespace

void FailLooselyValid(const std::string& text) {
    throw ProtocolError(kBadRequest, kNotLooselyValid, text);
}

Document::Document(std::string text, std::size_t maxDepth) : buffer(std::move(text)) {
    // pugixml takes much that is no XML, and cuts texts at the character 0.
    CheckWellFormed(buffer, maxDepth);
    const auto result =
        tree.load_buffer_inplace(buffer.data(), buffer.size(), kParseOptions, pugi::encoding_utf8);
    if (!result)
        throw ProtocolError(kBadRequest, kNotWellFormed,
                            "The request is no XML: " + std::string(result.description()) +
                                ", at byte " + std::to_string(result.offset) + ".");
}

bool Is(Node element, std::string_view name) { return name == element.name(); }

Node First(Node parent) { return SkipToElement(parent.first_child()); }

Node Next(Node element) { return SkipToElement(element.next_sibling()); }

Node Child(Node parent, const char* name) {
    const Node child = parent.child(name);
    if (!child)
        FailLooselyValid("The element '" + std::string(parent.name()) + "' lacks the element '" +
                         name + "'.");
    return child;
}

Node OnlyChild(Node parent) {
    const Node child = First(parent);
    if (!child || Next(child))
        FailLooselyValid("The element '" + std::string(parent.name()) +
                         "' must hold exactly one element.");
    return child;
}

std::string Required(Node element, const char* attribute) {
    const auto found = element.attribute(attribute);
    if (!found)
        FailLooselyValid("The element '" + std::string(element.name()) + "' lacks the attribute '" +
                         attribute + "'.");
    return found.value();
}

std::string TextOf(Node element) {
    std::string text;
    for (const Node child : element.children())
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            text += child.value();
    return text;
}

}  // namespace cimxml
