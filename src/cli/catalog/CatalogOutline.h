// A catalog as its author wrote it: entries and equates with their places, before the parser's
// rules put texts together.
#pragma once

#include <cli/catalog/CatalogReport.h>

#include <cstddef>
#include <string>
#include <vector>

namespace cli {

// A text of a message; its number is cut to 16 bits, as the parser cuts it.
struct CatalogText {
    CatalogPlace place;
    unsigned short number = 0;
    std::string text;
};

struct CatalogEntry {
    CatalogPlace place;
    std::string type;
    bool hasOwnType = true;          // else it is that of the entry before
    std::vector<CatalogText> texts;  // in file order
};

struct CatalogEquate {
    CatalogPlace place;
    std::string realType;
    std::string catalogType;
    std::size_t entriesBefore = 0;  // how many entries begin before it
};

struct CatalogOutline {
    std::vector<CatalogEntry> entries;  // in file order
    std::vector<CatalogEquate> equates;
};

}  // namespace cli
