// What `catalog check` says of one place in a catalog.
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
    // An error is what the parser reports; a warning what it accepts and hardly anybody means.
    enum class Severity { Error, Warning };

    CatalogPlace place;
    Severity severity = Severity::Error;
    std::string text;  // full sentences
};

using CatalogReports = std::vector<CatalogReport>;

}  // namespace cli
