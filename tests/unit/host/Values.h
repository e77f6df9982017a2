// Values as tests write them.
#pragma once

#include <host/Value.h>

#include <string>

namespace host {

inline Value Text(const std::string& text) { return {CMPI_string, text}; }

}  // namespace host
