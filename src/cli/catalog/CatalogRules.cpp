#include <cli/Text.h>
#include <cli/catalog/CatalogRules.h>
#include <cli/catalog/UsedNumbers.h>
#include <test/MachineTypes.h>

#include <algorithm>
#include <map>
#include <set>

namespace cli {

namespace {

using Entries = std::vector<CatalogEntry>;

bool IsGeneric(const std::string& type) {
    return type == GEN_MACHINE_TYPE || type == GEN_MACHINE_TYPE_OXC;
}

CatalogReport Warning(const CatalogPlace& place, const std::string& text) {
    return {place, CatalogReport::Severity::Warning, text};
}

// The entries that count: the last one of each type.
std::map<std::string, const CatalogEntry*> EntriesInForce(const Entries& entries) {
    std::map<std::string, const CatalogEntry*> inForce;
    for (const CatalogEntry& entry : entries) inForce[entry.type] = &entry;
    return inForce;
}

std::set<unsigned short> NumbersOf(const CatalogEntry* entry) {
    std::set<unsigned short> numbers;
    if (entry != nullptr)
        for (const CatalogText& text : entry->texts) numbers.insert(text.number);
    return numbers;
}

void WarnOfRepeatedMachines(const CatalogOutline& outline, CatalogReports& warnings) {
    std::map<std::string, int> lines;
    for (const CatalogEntry& entry : outline.entries) {
        const auto [first, isNew] = lines.emplace(entry.type, entry.place.line);
        if (!isNew && entry.hasOwnType)
            warnings.push_back(
                Warning(entry.place, "The machine '" + entry.type +
                                         "' is listed twice; this entry replaces that of line " +
                                         std::to_string(first->second) + "."));
        first->second = entry.place.line;
    }
}

void WarnOfRepeatedNumbers(const CatalogEntry& entry, CatalogReports& warnings) {
    std::map<unsigned short, int> lines;
    for (const CatalogText& text : entry.texts) {
        const auto [first, isNew] = lines.emplace(text.number, text.place.line);
        if (!isNew)
            warnings.push_back(Warning(
                text.place, "Message " + std::to_string(text.number) + " has a text in line " +
                                std::to_string(first->second) + " already; this one is not used."));
    }
}

void WarnOfTexts(const CatalogEntry& entry, CatalogReports& warnings) {
    for (const CatalogText& text : entry.texts) {
        if (!IsUsedNumber(text.number)) {
            warnings.push_back(Warning(
                text.place, "The test never uses message " + std::to_string(text.number) + "."));
        } else if (IsHeading(text.number) && !IsGeneric(entry.type)) {
            warnings.push_back(Warning(text.place, "The heading " + std::to_string(text.number) +
                                                       " is taken from the generic entry only."));
        } else if (IsHeading(text.number) && !text.text.ends_with(": ")) {
            warnings.push_back(Warning(text.place, "The heading " + std::to_string(text.number) +
                                                       " does not end with \": \"."));
        }
    }
}

void WarnOfEquates(const CatalogOutline& outline, CatalogReports& warnings) {
    std::map<std::string, int> lines;
    for (const CatalogEquate& equate : outline.equates) {
        if (equate.realType.empty() || equate.catalogType.empty()) continue;  // already an error
        const auto [first, isNew] = lines.emplace(equate.realType, equate.place.line);
        if (!isNew) {
            warnings.push_back(Warning(equate.place, "The machine '" + equate.realType +
                                                         "' has an equate in line " +
                                                         std::to_string(first->second) +
                                                         " already; this one is not used."));
            continue;
        }
        const auto machine =
            std::ranges::find(outline.entries, equate.catalogType, &CatalogEntry::type);
        if (machine == outline.entries.end()) {
            warnings.push_back(Warning(
                equate.place, "There is no machine '" + equate.catalogType + "' for this equate."));
        } else if (const auto later = std::find_if(
                       outline.entries.begin() + static_cast<std::ptrdiff_t>(equate.entriesBefore),
                       outline.entries.end(),
                       [&](const CatalogEntry& entry) { return entry.type == equate.catalogType; });
                   later == outline.entries.end()) {
            warnings.push_back(Warning(
                equate.place, "The equate stands behind its machine of line " +
                                  std::to_string(machine->place.line) + " and has no effect."));
        }
    }
}

// "101, 102 and 801 to 824": three numbers or more in a row are a range.
std::string NumbersText(const std::vector<unsigned short>& numbers) {
    constexpr std::size_t kShortestRange = 3;
    std::vector<std::string> texts;
    for (std::size_t begin = 0, end = 0; begin < numbers.size(); begin = end) {
        for (end = begin + 1; end < numbers.size() && numbers[end] == numbers[end - 1] + 1;) ++end;
        if (end - begin < kShortestRange) end = begin + 1;
        texts.push_back(std::to_string(numbers[begin]) +
                        (end - begin > 1 ? " to " + std::to_string(numbers[end - 1]) : ""));
    }
    return Listed(texts);
}

void WarnOfMissingTexts(const CatalogOutline& outline, CatalogReports& warnings) {
    const auto entries = EntriesInForce(outline.entries);
    const auto generic = entries.find(std::string(GEN_MACHINE_TYPE));
    const auto genericOxc = entries.find(std::string(GEN_MACHINE_TYPE_OXC));
    if (generic == entries.end() && genericOxc == entries.end()) {
        warnings.push_back(Warning(
            {1, 1}, "There is no entry " + std::string(GEN_MACHINE_TYPE) + " (nor " +
                        std::string(GEN_MACHINE_TYPE_OXC) +
                        " for machines with OXC controllers); without it no record has a text."));
        return;
    }
    const CatalogEntry& fallback = *(generic != entries.end() ? generic : genericOxc)->second;
    const auto general = NumbersOf(&fallback);
    for (const auto& [type, entry] : entries) {
        if (IsGeneric(type)) continue;
        const auto own = NumbersOf(entry);
        std::vector<unsigned short> missing;
        for (const unsigned short number : RequiredNumbers())
            if (!general.contains(number) && (IsHeading(number) || !own.contains(number)))
                missing.push_back(number);
        if (!missing.empty())
            warnings.push_back(Warning(entry->place, "Neither the machine '" + type + "' nor " +
                                                         fallback.type + " has a text for " +
                                                         NumbersText(missing) + "."));
    }
}

}  // namespace

CatalogReports OutlineWarnings(const CatalogOutline& outline) {
    CatalogReports warnings;
    WarnOfRepeatedMachines(outline, warnings);
    for (const CatalogEntry& entry : outline.entries) {
        WarnOfRepeatedNumbers(entry, warnings);
        WarnOfTexts(entry, warnings);
    }
    WarnOfEquates(outline, warnings);
    WarnOfMissingTexts(outline, warnings);
    return warnings;
}

}  // namespace cli
