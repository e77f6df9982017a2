#include <cli/Spelling.h>
#include <cli/catalog/OutlineBuilder.h>
#include <cli/catalog/ParserSentences.h>
#include <mof/Names.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace cli {

namespace {

constexpr long long kLastNumber = 65535;

const std::vector<std::string>& Qualifiers() {
    static const std::vector<std::string> kQualifiers = {"recommendation", "quvrecommendation",
                                                         "oemrecommendation", "values"};
    return kQualifiers;
}

bool IsMessageQualifier(const std::string& folded) {
    return std::ranges::find(Qualifiers(), folded) == Qualifiers().end();
}

bool IsBlank(const std::string& text) { return text.find_first_not_of(" \t\r\n") == text.npos; }

std::string OddIndex(const std::string& index) {
    const long long number = std::strtoll(index.c_str(), nullptr, 10);
    const auto cut = [number] { return std::to_string(static_cast<unsigned short>(number)); };
    if (number < 0)
        return "The index '" + index + "' is negative; its text gets the number " + cut() + ".";
    if (number > kLastNumber)
        return "The index '" + index + "' is over 65535; its text gets the number " + cut() +
               ", its recommendations keep " + std::to_string(number) + ".";
    if (index.starts_with('+')) return "The index '" + index + "' has a sign.";
    return "";
}

}  // namespace

void OutlineBuilder::Start(const std::string& name, const Attributes& attributes,
                           const CatalogPlace& place) {
    if (value && !value->isCut) {
        value->isCut = true;
        Warn(value->place, "The value holds the element '" + name + "'; its text ends there.");
    }
    const std::string folded = mof::FoldedName(name);
    open.push_back(folded);
    if (folded == "machine") StartMachine(attributes, place);
    if (folded == "property") StartProperty(attributes, place);
    if (folded == "qualifier") StartQualifier(attributes, place);
    if (folded == "machinetypeequates") StartEquate(attributes, place);
    if (folded == "value") StartValue(place);
}

void OutlineBuilder::Text(std::string_view text) {
    if (value && !value->isCut) value->text += text;
}

void OutlineBuilder::End(const std::string& name) {
    const std::string folded = mof::FoldedName(name);
    if (folded == "value") EndValue();
    if (folded == "qualifier") qualifierName.clear();
    if (folded == "machine") EndMachine();
    open.pop_back();
}

void OutlineBuilder::Warn(const CatalogPlace& place, const std::string& text) {
    warnings.push_back({place, CatalogReport::Severity::Warning, text});
}

bool OutlineBuilder::IsWithin(std::string_view element) const {
    return std::ranges::find(open, element) != open.end();
}

bool OutlineBuilder::Take(const Attributes& attributes, const char* name, std::string& value) {
    const auto found = attributes.find(name);
    if (found == attributes.end()) return false;
    value = found->second;
    return true;
}

void OutlineBuilder::StartMachine(const Attributes& attributes, const CatalogPlace& place) {
    const std::string before = machineType;
    const bool isGiven = Take(attributes, "type", machineType);
    if (!isGiven && !before.empty())
        Warn(place, "This machine has no type and takes that of the machine before, '" + before +
                        "', whose entry it replaces.");
    outline.entries.push_back({place, machineType, isGiven, {}});
}

void OutlineBuilder::StartProperty(const Attributes& attributes, const CatalogPlace& place) {
    Take(attributes, "name", propertyName);
    const std::string before = propertyIndex;
    const bool isGiven = Take(attributes, "index", propertyIndex);
    if (mof::FoldedName(propertyName) != "message") return;
    if (!isGiven && !before.empty())
        Warn(place,
             "This message has no index and takes that of the property before, " + before + ".");
    if (const std::string odd = OddIndex(propertyIndex); isGiven && !odd.empty()) Warn(place, odd);
    if (!IsWithin("machine"))
        Warn(place,
             "This message stands outside a machine and goes to the next machine that ends.");
}

void OutlineBuilder::StartQualifier(const Attributes& attributes, const CatalogPlace& place) {
    std::string name;
    if (Take(attributes, "name", name)) qualifierName = mof::FoldedName(name);
    if (!name.empty() && IsMessageQualifier(qualifierName))
        Warn(place, WithSuggestion("There is no qualifier '" + name +
                                       "', so its values are texts of the message.",
                                   NearestInAnyCase(name, Qualifiers())));
    if (!IsWithin("property"))
        Warn(place, "This qualifier stands outside a property; its recommendations go to message " +
                        (propertyIndex.empty() ? "none" : propertyIndex) +
                        ", the last one before it.");
}

void OutlineBuilder::StartEquate(const Attributes& attributes, const CatalogPlace& place) {
    Take(attributes, "realmt", equateRealType);
    Take(attributes, "xmlmt", equateCatalogType);
    outline.equates.push_back({place, equateRealType, equateCatalogType, outline.entries.size()});
}

void OutlineBuilder::StartValue(const CatalogPlace& place) { value = {place, "", false}; }

void OutlineBuilder::EndValue() {
    if (!value) return;
    const Value ended = *std::exchange(value, std::nullopt);
    if (qualifierName == "values" || mof::FoldedName(propertyName) != "message") return;
    if (IsBlank(ended.text)) {
        Warn(ended.place, "The text is empty.");
    } else if (ended.text.find('\n') != std::string::npos) {
        Warn(ended.place,
             "The text has several lines; its line breaks and indentation are printed, too.");
    }
    if (!IsMessageQualifier(qualifierName)) return;
    const long long number = std::strtoll(propertyIndex.c_str(), nullptr, 10);
    texts.push_back({ended.place, static_cast<unsigned short>(number), ended.text});
}

void OutlineBuilder::EndMachine() {
    if (!outline.entries.empty()) outline.entries.back().texts = std::exchange(texts, {});
}

}  // namespace cli
