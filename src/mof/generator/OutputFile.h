// Files that a build makes.
#pragma once

#include <filesystem>
#include <string>

namespace mof {

// Writes the file, and makes its folder first, unless the file already holds the content: what has
// not changed is not built again. Throws std::runtime_error.
void WriteIfChanged(const std::filesystem::path& file, const std::string& content);

}  // namespace mof
