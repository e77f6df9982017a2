// The checks of the message catalog by `bmci2c doctor`. They use the module's own parser, so that
// both always agree.
#pragma once

#include <cli/doctor/Check.h>
#include <platform/settings/Settings.h>

#include <optional>
#include <string>

namespace cli {

// Of the machine that the catalog is to know.
struct CatalogMachine {
    std::string type;
    std::string biosId;
    platform::OxcFamily oxc;
};

// The catalog can be read and has no errors. Where the machine is known: it has an entry for it,
// and the generic one that every machine falls back on.
Checks CheckCatalog(const std::string& path, const std::optional<CatalogMachine>& machine);

}  // namespace cli
