// Why the message catalog cannot be read.
#pragma once

#include <filesystem>
#include <string>

namespace cli {

// A sentence; empty when the file can be read. What is in it is not looked at.
std::string CatalogTrouble(const std::filesystem::path& catalog);

}  // namespace cli
