#include <cli/ScopedVariable.h>
#include <cli/catalog/CatalogCheck.h>
#include <cli/catalog/CatalogReader.h>
#include <cli/catalog/CatalogRules.h>
#include <platform/settings/FileText.h>

#include <algorithm>
#include <limits>

namespace cli {

namespace {

void Append(CatalogReports& all, const CatalogReports& more) {
    all.insert(all.end(), more.begin(), more.end());
}

}  // namespace

CatalogReports CheckCatalogFile(const std::string& path) {
    const ScopedVariable silence = SilentLog();  // before the parser looks at the settings
    CatalogReader reader;
    reader.Read(platform::ReadFileText(path, std::numeric_limits<std::size_t>::max()));
    CatalogReports reports = reader.Errors();
    Append(reports, reader.Outline().Warnings());
    // After a syntax error the rest of the file is unknown, so rules over the whole file would be
    // wrong.
    if (reader.SyntaxError().empty()) Append(reports, OutlineWarnings(reader.Outline().Outline()));
    std::ranges::stable_sort(reports, {}, &CatalogReport::place);
    return reports;
}

}  // namespace cli
