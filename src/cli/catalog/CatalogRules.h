// What the parser accepts and a catalog's author hardly means: rules over the whole file.
#pragma once

#include <cli/catalog/CatalogOutline.h>

namespace cli {

CatalogReports OutlineWarnings(const CatalogOutline& outline);

}  // namespace cli
