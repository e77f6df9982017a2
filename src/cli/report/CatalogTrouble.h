// Why the message catalog was of no use to a run.
#pragma once

#include <cli/LogCapture.h>

#include <filesystem>
#include <string>
#include <vector>

namespace cli {

// What keeps the catalog from being read to its end, in a sentence; empty when nothing does.
// `lines` are what the run logged.
std::string CatalogTrouble(const std::filesystem::path& catalog, const std::vector<LogLine>& lines);

// Where in the catalog an error ended the call, in a sentence or two; empty when the last line of
// the log is not one of the catalog's parser.
std::string CatalogPlace(const std::filesystem::path& catalog, const std::vector<LogLine>& lines);

}  // namespace cli
