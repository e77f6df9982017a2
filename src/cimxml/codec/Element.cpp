#include <cimxml/codec/Element.h>

#include <algorithm>

namespace cimxml {

namespace {

constexpr int kBadRequest = 400;

}  // namespace

void FailLooselyValid(const std::string& text) {
    throw ProtocolError(kBadRequest, kNotLooselyValid, text);
}

const std::string* Element::FindAttribute(std::string_view attribute) const {
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const auto& one) { return one.first == attribute; });
    return found == attributes.end() ? nullptr : &found->second;
}

const Element* Element::FindChild(std::string_view child) const {
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](const Element& one) { return one.Is(child); });
    return found == children.end() ? nullptr : &*found;
}

const std::string& Element::Attribute(std::string_view attribute) const {
    const std::string* const found = FindAttribute(attribute);
    if (!found)
        FailLooselyValid("The element '" + name + "' lacks the attribute '" +
                         std::string(attribute) + "'.");
    return *found;
}

const Element& Element::Child(std::string_view child) const {
    const Element* const found = FindChild(child);
    if (!found)
        FailLooselyValid("The element '" + name + "' lacks the element '" + std::string(child) +
                         "'.");
    return *found;
}

const Element& Element::OnlyChild() const {
    if (children.size() != 1)
        FailLooselyValid("The element '" + name + "' must hold exactly one element.");
    return children.front();
}

}  // namespace cimxml
