// Warnings about what the parser accepts but the author hardly intends: rules over the whole file.
#pragma once

#include <cli/catalog/CatalogOutline.h>

namespace cli {

CatalogReports OutlineWarnings(const CatalogOutline& outline);

}  // namespace cli
