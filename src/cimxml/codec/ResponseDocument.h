// The document around the answer to a request.
#pragma once

#include <cimxml/codec/Request.h>
#include <cimxml/codec/XmlWriter.h>

#include <functional>
#include <string>

namespace cimxml {

// `write` adds what stands within IMETHODRESPONSE or METHODRESPONSE.
std::string ResponseDocument(const Request& request, const std::function<void(XmlWriter&)>& write);

}  // namespace cimxml
