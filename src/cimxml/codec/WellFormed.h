// Whether a text is a document that this server reads.
#pragma once

#include <cstddef>
#include <string>

namespace cimxml {

// Throws ProtocolError when the text is no well-formed XML in UTF-8, brings declarations of its own
// (entities could be among them), or has elements below more than `maxDepth` others.
void CheckWellFormed(const std::string& text, std::size_t maxDepth);

}  // namespace cimxml
