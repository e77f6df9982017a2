// Reads the document of a request.
#pragma once

#include <cimxml/codec/Request.h>

#include <cstddef>
#include <string>

namespace cimxml {

// Throws ProtocolError if the text is not a request of a supported version, or holds several
// requests.
Request ReadRequest(const std::string& text, std::size_t maxDepth);

}  // namespace cimxml
