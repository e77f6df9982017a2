#include <cli/Spelling.h>
#include <cli/catalog/ParserSentences.h>
#include <mof/Names.h>

#include <map>
#include <optional>

namespace cli {

namespace {

const std::vector<std::string>& AttributesOf(const std::string& element) {
    static const std::map<std::string, std::vector<std::string>> kAttributes = {
        {"bmci2cmsg", {"version"}},
        {"property", {"name", "type", "index"}},
        {"genrecommendation", {"index", "value"}},
        {"oemrecommendation", {"index", "value"}},
        {"qualifier", {"name", "type"}},
        {"machinetypeequates", {"realmt", "xmlmt"}},
        {"machine", {"type"}},
    };
    static const std::vector<std::string> kNone;
    const auto found = kAttributes.find(mof::FoldedName(element));
    return found == kAttributes.end() ? kNone : found->second;
}

// What follows the beginning of a text, if it begins so.
std::optional<std::string> After(const std::string& beginning, const std::string& text) {
    if (!text.starts_with(beginning)) return std::nullopt;
    return text.substr(beginning.size());
}

// "No Type Specified for machine identifier"; the parser calls two attributes of an equate by the
// names of a recommendation's.
std::string MissingAttribute(const std::string& report, const std::string& element) {
    const std::string folded = mof::FoldedName(element);
    std::string attribute = mof::FoldedName(report.substr(0, report.find(' ')));
    if (folded == "machinetypeequates") attribute = attribute == "index" ? "realmt" : "xmlmt";
    if (folded == "property" && attribute == "type") attribute = "index";
    return "The element '" + element + "' needs the attribute '" + attribute + "'.";
}

}  // namespace

const std::vector<std::string>& CatalogElements() {
    static const std::vector<std::string> kElements = {
        "bmci2cmsg",   "property", "genrecommendation", "oemrecommendation", "qualifier",
        "value.array", "value",    "machine",           "machinetypeequates"};
    return kElements;
}

std::string WithSuggestion(const std::string& sentence, const std::string& nearest) {
    return nearest.empty() ? sentence : sentence + " Did you mean '" + nearest + "'?";
}

std::string ParserSentence(const std::string& report, const std::string& element) {
    if (const auto name = After("Unrecognized identifier: ", report))
        return WithSuggestion("There is no element '" + *name + "'.",
                              NearestInAnyCase(*name, CatalogElements()));
    if (const auto name = After("Unrecognized Attribute:", report))
        return WithSuggestion("The element '" + element + "' has no attribute '" + *name + "'.",
                              NearestInAnyCase(*name, AttributesOf(element)));
    if (const auto name = After("Unrecognized Name:", report))
        return WithSuggestion("No property is named '" + *name + "'.",
                              NearestInAnyCase(*name, {"message", "machine_type"}));
    if (const auto rest = After("No ", report);
        rest && rest->find(" Specified for ") != report.npos)
        return MissingAttribute(*rest, element);
    return report.ends_with('.') ? report : report + ".";
}

}  // namespace cli
