#include <cimxml/codec/Document.h>
#include <cimxml/codec/Utf8.h>

#include <utility>

namespace cimxml {

namespace {

constexpr int kBadRequest = 400;

constexpr unsigned int kParseOptions = pugi::parse_default | pugi::parse_doctype |
                                       pugi::parse_declaration | pugi::parse_ws_pcdata_single;

[[noreturn]] void FailWellFormed(const std::string& text) {
    throw ProtocolError(kBadRequest, kNotWellFormed, text);
}

class DepthCheck : public pugi::xml_tree_walker {
public:
    explicit DepthCheck(std::size_t most) : maxDepth(most) {}

    bool for_each(Node& node) override {
        return node.type() != pugi::node_element || static_cast<std::size_t>(depth()) < maxDepth;
    }

private:
    const std::size_t maxDepth;
};

void CheckProlog(const pugi::xml_document& tree) {
    for (const Node node : tree.children()) {
        if (node.type() == pugi::node_doctype &&
            std::string_view(node.value()).find('[') != std::string_view::npos)
            FailLooselyValid("The request declares document types of its own.");
        const std::string_view encoding = node.attribute("encoding").value();
        if (node.type() == pugi::node_declaration && !encoding.empty() && encoding != "utf-8" &&
            encoding != "UTF-8")
            FailWellFormed("The request is not encoded in UTF-8.");
    }
}

Node SkipToElement(Node node) {
    while (node && node.type() != pugi::node_element) node = node.next_sibling();
    return node;
}

}  // namespace

void FailLooselyValid(const std::string& text) {
    throw ProtocolError(kBadRequest, kNotLooselyValid, text);
}

Document::Document(std::string text, std::size_t maxDepth) : buffer(std::move(text)) {
    if (!IsXmlText(buffer))
        FailWellFormed("The request holds bytes that are no characters of XML in UTF-8.");
    const auto result =
        tree.load_buffer_inplace(buffer.data(), buffer.size(), kParseOptions, pugi::encoding_utf8);
    if (!result)
        FailWellFormed("The request is no XML: " + std::string(result.description()) +
                       ", at byte " + std::to_string(result.offset) + ".");
    CheckProlog(tree);
    if (Next(First(tree)))
        FailWellFormed("The request is no XML: there are elements behind its root.");
    DepthCheck check(maxDepth);
    if (!tree.traverse(check))
        FailLooselyValid("Elements of the request are nested deeper than " +
                         std::to_string(maxDepth) + " levels.");
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
