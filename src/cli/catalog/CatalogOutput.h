// What the command prints of catalogs, for people and for programs.
#pragma once

#include <cli/Json.h>
#include <cli/catalog/CatalogDiff.h>
#include <cli/catalog/CatalogReport.h>

#include <cstddef>
#include <string>
#include <vector>

namespace cli {

struct CheckedCatalog {
    std::string path;
    CatalogReports reports;
};

std::size_t CountOf(const std::vector<CheckedCatalog>& catalogs, CatalogReport::Severity severity);

// A line "FILE:LINE:COLUMN: error|warning: SENTENCE" for each report, and the totals.
std::string ReportsText(const std::vector<CheckedCatalog>& catalogs);
Json ReportsJson(const std::vector<CheckedCatalog>& catalogs);

// Every message with the entries that text and recommendations come from.
std::string MachinesText(const std::vector<MachineMessages>& machines);
Json MachinesJson(const std::vector<MachineMessages>& machines);

// The texts before with "- ", those after with "+ " before each line.
std::string ChangesText(const std::vector<CatalogChange>& changes);
Json ChangesJson(const std::vector<CatalogChange>& changes);

}  // namespace cli
