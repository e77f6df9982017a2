#include <cli/report/CatalogTrouble.h>
#include <platform/settings/FileText.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

namespace cli {

namespace {

// "BMCI2C Parser Line 7:text".
constexpr std::string_view kParserPrefix = "BMCI2C Parser Line ";
constexpr std::string_view kSyntaxError = "Not well-formed XML ";

struct ParserLine {
    std::string number;
    std::string text;
};

std::optional<ParserLine> ParserLineOf(const std::string& logged) {
    const std::size_t colon = logged.find(':');
    if (!logged.starts_with(kParserPrefix) || colon == std::string::npos) return std::nullopt;
    return ParserLine{logged.substr(kParserPrefix.size(), colon - kParserPrefix.size()),
                      logged.substr(colon + 1)};
}

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// The system's reason why the file cannot be opened; empty when it can.
std::string OpenError(const fs::path& file) {
    const std::unique_ptr<std::FILE, CloseFile> opened(std::fopen(file.c_str(), "re"));
    return opened ? "" : platform::ReasonText(errno);
}

std::string SyntaxError(const fs::path& catalog, const std::vector<LogLine>& lines) {
    for (const LogLine& line : lines) {
        const std::optional<ParserLine> parsed = ParserLineOf(line.text);
        if (parsed && parsed->text.starts_with(kSyntaxError))
            return "The message catalog " + catalog.string() + " is wrong in line " +
                   parsed->number + ": " + parsed->text;
    }
    return "";
}

}  // namespace

std::string CatalogTrouble(const fs::path& catalog, const std::vector<LogLine>& lines) {
    std::error_code unreadable;
    const fs::file_status status = fs::status(catalog, unreadable);
    if (status.type() == fs::file_type::not_found)
        return "There is no message catalog " + catalog.string() + ".";
    if (fs::exists(status) && !fs::is_regular_file(status))
        return "The message catalog " + catalog.string() + " is not a file.";
    const std::string reason = OpenError(catalog);
    if (!reason.empty())
        return "The message catalog " + catalog.string() + " cannot be read: " + reason + ".";
    return SyntaxError(catalog, lines);
}

std::string CatalogPlace(const fs::path& catalog, const std::vector<LogLine>& lines) {
    const std::optional<ParserLine> last =
        lines.empty() ? std::nullopt : ParserLineOf(lines.back().text);
    if (!last) return "";
    return "The error came up in line " + last->number + " of the message catalog " +
           catalog.string() +
           ". If it is a bad cast, the index of the property there is no decimal number.";
}

}  // namespace cli
