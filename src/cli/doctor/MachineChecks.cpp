#include <cli/doctor/MachineChecks.h>
#include <platform/diagnostics/SmbiosText.h>

#include <optional>
#include <string>

namespace cli {

namespace {

using platform::Setting;
using platform::SmbiosSource;
using platform::SmbiosText;

struct Text {
    std::string name;
    std::string key;    // under [machine], in the place of SMBIOS's text
    std::string unset;  // what firmware writes where nothing was set
    const Setting<std::optional<std::string>>& fixed;
    const SmbiosSource& source;
};

std::string PlaceOf(const Text& text) {
    return text.fixed.value ? text.fixed.place
                            : text.source.folder.value + "/" + text.source.file.value;
}

Check CheckText(const Text& text, const SmbiosText& read) {
    const std::string advice = "Set the key " + text.key + " under [machine] in the settings file.";
    if (!read.problem.empty()) return BadFrom(text.name, read.problem, advice);
    const std::string said = "The " + text.name + " is ";
    const std::string place = ", says " + PlaceOf(text) + ".";
    if (read.text.empty()) return Bad(text.name, said + "empty" + place, advice);
    if (read.text == text.unset)
        return Bad(text.name, said + '"' + read.text + "\", which stands for none" + place, advice);
    return Good(text.name, said + '"' + read.text + '"' + place);
}

}  // namespace

Checks CheckSmbios(const platform::Settings& settings) {
    return {
        CheckText({"machine type", "type", "", settings.machineType, settings.machineTypeSource},
                  platform::ReadMachineType(settings)),
        CheckText({"BIOS identifier", "bios_id", "00", settings.biosId, settings.biosIdSource},
                  platform::ReadBiosId(settings))};
}

}  // namespace cli
