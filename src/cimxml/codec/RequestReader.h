// Reads the document of a request.
#pragma once

#include <cimxml/codec/Request.h>

#include <cstddef>
#include <string>

namespace cimxml {

// Throws ProtocolError when the text is no request of one of the supported versions, or holds
// several requests at once.
Request ReadRequest(const std::string& text, std::size_t maxDepth);

}  // namespace cimxml
