// The XML document of a request, and how its elements are reached.
#pragma once

#include <cimxml/codec/ProtocolError.h>

#include <cstddef>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace cimxml {

using Node = pugi::xml_node;

class Document {
public:
    // Reads the text. Throws ProtocolError when CheckWellFormed() does.
    Document(std::string text, std::size_t maxDepth);

    Node Root() const { return tree.document_element(); }

private:
    std::string buffer;  // holds the texts of the tree
    pugi::xml_document tree;
};

bool Is(Node element, std::string_view name);

// The element children. `Next` and `First` give an empty node behind the last one.
Node First(Node parent);
Node Next(Node element);

// These throw ProtocolError when the element has no such child, or not exactly one child.
Node Child(Node parent, const char* name);
Node OnlyChild(Node parent);

// Throws ProtocolError when the element has no such attribute.
std::string Required(Node element, const char* attribute);

// The element's text, character data sections and white space included.
std::string TextOf(Node element);

[[noreturn]] void FailLooselyValid(const std::string& text);

}  // namespace cimxml
