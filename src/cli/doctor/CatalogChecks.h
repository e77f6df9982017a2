// What `bmci2c doctor` says of the message catalog. It reads the catalog with the module's own
// parser, so that the two can never judge it differently.
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
