// A report of `catalog check` about one place in a catalog.
#pragma once

#include <string>
#include <vector>

namespace cli {

// Line and column, both from 1, of a tag or of what cannot be read.
struct CatalogPlace {
    int line = 0;
    int column = 0;

    auto operator<=>(const CatalogPlace&) const = default;
};

struct CatalogReport {
    // An error is what the parser reports; a warning is what it accepts but the author hardly
    // intends.
    enum class Severity { Error, Warning };

    CatalogPlace place;
    Severity severity = Severity::Error;
    std::string text;  // full sentences
};

using CatalogReports = std::vector<CatalogReport>;

}  // namespace cli
