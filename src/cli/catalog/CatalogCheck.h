// Checks a catalog without a machine.
#pragma once

#include <cli/catalog/CatalogReport.h>

#include <string>

namespace cli {

// The reports of the catalog's parser and the warnings, by place. Throws std::system_error when the
// file cannot be read.
CatalogReports CheckCatalogFile(const std::string& path);

}  // namespace cli
