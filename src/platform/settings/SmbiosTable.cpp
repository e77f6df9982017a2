#include <platform/settings/Keys.h>
#include <platform/settings/SmbiosTable.h>
#include <platform/settings/TextPattern.h>
#include <platform/settings/TomlSetting.h>

namespace platform {

namespace {

std::optional<std::string> ReadPattern(TomlTable& table, std::string_view key) {
    std::optional<std::string> pattern = table.NonEmptyText(key);
    try {
        if (pattern) TextPattern checked(*pattern);
    } catch (const PatternError& error) {
        table.Reject(key, '"' + *pattern + "\" (" + error.what() + ')',
                     "is an extended regular expression, as of grep -E");
    }
    return pattern;
}

// Of a table whose `pattern` was read.
std::optional<std::string> ReadReplacement(TomlTable& table, std::string_view key,
                                           const std::optional<std::string>& pattern) {
    std::optional<std::string> replacement = table.Text(key);
    if (!replacement) return std::nullopt;
    if (!pattern)
        table.Reject(key, "a replacement without a pattern",
                     "is a replacement beside the key pattern; add that key");
    try {
        TextPattern checked(*pattern, *replacement);
    } catch (const PatternError& error) {
        table.Reject(key, '"' + *replacement + "\" (" + error.what() + ')',
                     R"(is a text in which \0 stands for what the pattern finds, \1 to \9 for its )"
                     R"(groups, and \\ for a backslash)");
    }
    return replacement;
}

}  // namespace

void ReadSmbiosSource(TomlTable& machine, std::string_view key, const std::filesystem::path& folder,
                      SmbiosSource& source) {
    std::optional<TomlTable> table = machine.Table(key);
    if (!table) return;
    Apply(*table, keys::kFolder, source.folder, ReadPath, folder);
    Apply(*table, keys::kFile, source.file, &TomlTable::NonEmptyText);
    Apply(*table, keys::kPattern, source.pattern, ReadPattern);
    Apply(*table, keys::kReplacement, source.replacement, ReadReplacement, source.pattern.value);
    table->RejectOtherKeys();
}

}  // namespace platform
