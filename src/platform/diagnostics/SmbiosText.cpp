#include <platform/diagnostics/SmbiosText.h>
#include <platform/settings/FileText.h>
#include <platform/settings/TextPattern.h>

#include <optional>
#include <system_error>

namespace platform {

namespace {

constexpr const char* kWhiteSpace = " \t\r\n\v\f";

// Of the table [machine.KEY_source].
SmbiosText CutText(const std::string& path, const std::string& text, const SmbiosSource& source,
                   const std::string& key) {
    if (!source.pattern.value) return {text, ""};
    const TextPattern pattern(*source.pattern.value, source.replacement.value);
    if (auto cut = pattern.Cut(text)) return {*std::move(cut), ""};
    return {text, "The text of " + path + ", \"" + text + "\", does not hold the pattern \"" +
                      *source.pattern.value +
                      "\", so it is taken whole. Fix the key pattern "
                      "under [machine." +
                      key + "_source] in the settings file."};
}

// `key` is the key under [machine] that stands in for the source.
SmbiosText ReadSource(const SmbiosSource& source, const std::string& key) {
    const std::string path = source.folder.value + "/" + source.file.value;
    try {
        std::string text = ReadFileText(path);
        text.erase(text.find_last_not_of(kWhiteSpace) + 1);
        return text.empty() ? SmbiosText{} : CutText(path, text, source, key);
    } catch (const std::system_error& error) {
        return {"", path + " cannot be read: " + ReasonText(error.code().value()) + ". The key " +
                        key + " under [machine] in the settings file can stand in for it."};
    }
}

}  // namespace

SmbiosText ReadMachineType(const Settings& settings) {
    if (const auto& type = settings.machineType.value) return {*type, ""};
    return ReadSource(settings.machineTypeSource, "type");
}

SmbiosText ReadBiosId(const Settings& settings) {
    if (const auto& biosId = settings.biosId.value) return {*biosId, ""};
    return ReadSource(settings.biosIdSource, "bios_id");
}

}  // namespace platform
