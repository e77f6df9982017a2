// What changed between two catalogs, for each machine.
#pragma once

#include <cli/catalog/CatalogMessages.h>

#include <string>
#include <vector>

namespace cli {

struct CatalogChange {
    std::string machine;
    std::string what;  // "added", "removed", or "message 901"
    std::string before;
    std::string after;
};

std::vector<CatalogChange> CatalogDiff(const std::vector<MachineMessages>& before,
                                       const std::vector<MachineMessages>& after);

// The line of a message and its recommendations, as a record holds them.
std::string RecordText(const CatalogMessage& message);

}  // namespace cli
