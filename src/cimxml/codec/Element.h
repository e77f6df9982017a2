// The XML document of a request as a tree of elements.
#pragma once

#include <cimxml/codec/ProtocolError.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cimxml {

struct Element {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes = {};
    std::string text = {};  // its own character data, joined; white space included
    std::vector<Element> children = {};

    bool Is(std::string_view other) const { return name == other; }

    // Null when there is no such attribute or child, or no child at all.
    const std::string* FindAttribute(std::string_view attribute) const;
    const Element* FindChild(std::string_view child) const;
    const Element* FirstChild() const { return children.empty() ? nullptr : &children.front(); }

    // These throw ProtocolError when the element has no such attribute or child, or not exactly one
    // child.
    const std::string& Attribute(std::string_view attribute) const;
    const Element& Child(std::string_view child) const;
    const Element& OnlyChild() const;
};

[[noreturn]] void FailLooselyValid(const std::string& text);

}  // namespace cimxml
