// Reads XML documents.
#pragma once

#include <cimxml/codec/Element.h>

#include <cstddef>
#include <string>

namespace cimxml {

// The document's root. Throws ProtocolError when the text is not well-formed XML in UTF-8, brings
// declarations of its own (entities could be among them) or refers to entities of another document,
// or has elements below more than `maxDepth` others.
Element ReadDocument(const std::string& text, std::size_t maxDepth);

}  // namespace cimxml
