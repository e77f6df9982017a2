// Texts with places for arguments: $0 to $9.
#pragma once

#include <cmpi/cmpi.h>

#include <cstdarg>
#include <string>
#include <vector>

namespace host {

// The texts of so many variable arguments, each of which is a CMPIType (as an int) and the value.
// Throws Failure for a type that has no text.
std::vector<std::string> ReadArguments(CMPICount count, va_list arguments);

// The text with each argument in its place; a place without an argument stays as it is.
std::string WithArguments(const std::string& text, const std::vector<std::string>& arguments);

}  // namespace host
