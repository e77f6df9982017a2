#include <cli/report/CatalogTrouble.h>
#include <platform/settings/FileText.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace fs = std::filesystem;

namespace cli {

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// The system's reason why the file cannot be opened; empty when it can.
std::string OpenError(const fs::path& file) {
    const std::unique_ptr<std::FILE, CloseFile> opened(std::fopen(file.c_str(), "re"));
    return opened ? "" : platform::ReasonText(errno);
}

}  // namespace

std::string CatalogTrouble(const fs::path& catalog) {
    std::error_code unreadable;
    const fs::file_status status = fs::status(catalog, unreadable);
    if (status.type() == fs::file_type::not_found)
        return "There is no message catalog " + catalog.string() + ".";
    if (fs::exists(status) && !fs::is_regular_file(status))
        return "The message catalog " + catalog.string() + " is not a file.";
    const std::string reason = OpenError(catalog);
    if (reason.empty()) return "";
    return "The message catalog " + catalog.string() + " cannot be read: " + reason + ".";
}

}  // namespace cli
