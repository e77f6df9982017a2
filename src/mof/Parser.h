// The top level of a MOF text.
#pragma once

#include <mof/Declarations.h>
#include <mof/Place.h>

#include <functional>
#include <string>
#include <string_view>

namespace mof {

// Called for each `#pragma include ("file")` with the file's name as it stands there and its place.
using IncludeHandler = std::function<void(const std::string& file, const Place& place)>;

// Adds the declarations of a text to those that are known. Other pragmas are passed over.
// Throws Error.
void Parse(std::string_view text, const std::string& fileName, Declarations& declarations,
           const IncludeHandler& include);

}  // namespace mof
