#include <catalog/IndexError.h>
#include <catalog/MessageIndex.h>
#include <catalog/TBmcI2cXMLParser.h>
#include <platform/diagnostics/TOSSpecific.h>
#include <platform/diagnostics/TRootObject.h>

#include <algorithm>
#include <array>
#include <boost/algorithm/string/case_conv.hpp>
#include <boost/algorithm/string/replace.hpp>
#include <boost/make_shared.hpp>
#include <cstddef>
#include <locale>
#include <optional>
#include <sstream>
#include <stdexcept>

using NQUVZDX20::EZDXLogSeverity;
using NQUVZDX20::kLogFatal;
using NQUVZDX20::kLogFinest;
using NQUVZDX20::kLogTrace;

namespace {

constexpr std::string_view kMachineTypeProperty = "machine_type";
constexpr std::string_view kMessageProperty = "message";

// Names of qualifiers; under any other name a value is a message text.
constexpr std::string_view kIgnoredValues = "values";
constexpr std::string_view kRecommendation = "recommendation";
constexpr std::string_view kStandardRecommendation = "quvrecommendation";
constexpr std::string_view kOemRecommendation = "oemrecommendation";

// The locale of the process must not decide how a catalog is read.
std::string LowerCase(const std::string& text) {
    return boost::algorithm::to_lower_copy(text, std::locale::classic());
}

std::string AttributeLine(const std::string& name, const std::string& value) {
    return "    " + name + ":" + value;
}

std::string AsWritten(std::string text) { return text; }

std::string WithAngleBrackets(std::string text) {
    boost::algorithm::replace_all(text, "&lt;", "<");
    boost::algorithm::replace_all(text, "&gt;", ">");
    return text;
}

}  // namespace

TBmcI2cXMLParser::TBmcI2cXMLParser() {
    SetDataCollected(false);
    oemBuild = NQUVZDX20::TOSSpecific::isOEMBuild();
}

TBmcI2cXMLParser::~TBmcI2cXMLParser() = default;

const TBmcI2cXMLParser::Element* TBmcI2cXMLParser::FindElement(std::string_view lowerCaseName) {
    using Parser = TBmcI2cXMLParser;
    static constexpr std::array<Element, 9> kElements = {{
        {"bmci2cmsg", &Parser::StartRoot, nullptr},
        {"property", &Parser::StartProperty, nullptr},
        {"genrecommendation", &Parser::StartGenRecommendation, nullptr},
        {"oemrecommendation", &Parser::StartOemRecommendation, nullptr},
        {"qualifier", &Parser::StartQualifier, &Parser::EndQualifier},
        {"value.array", &Parser::StartValueArray, nullptr},
        {"value", &Parser::StartValue, &Parser::EndValue},
        {"machinetypeequates", &Parser::StartEquate, nullptr},
        {"machine", &Parser::StartMachine, &Parser::EndMachine},
    }};
    const auto* const element = std::find_if(
        kElements.begin(), kElements.end(),
        [lowerCaseName](const Element& candidate) { return candidate.name == lowerCaseName; });
    return element == kElements.end() ? nullptr : element;
}

void TBmcI2cXMLParser::StartElement(const char* name,
                                    std::map<std::string, std::string>& attributes) {
    const std::string nameAsWritten = name;
    DebugOutput(kLogFinest, "++ ELEMENT: " + nameAsWritten);
    for (const auto& [attribute, value] : attributes) {
        DebugOutput(kLogFinest, AttributeLine(attribute, value));
    }
    currentElement = LowerCase(nameAsWritten);
    const Element* const element = FindElement(currentElement);
    if (element == nullptr) {
        FatalError("Unrecognized identifier: " + nameAsWritten);
        return;
    }
    (this->*element->onStart)(nameAsWritten, attributes);
}

void TBmcI2cXMLParser::EndElement(const char* name) {
    const std::string nameAsWritten = name;
    DebugOutput(kLogFinest, "-- ELEMENT: " + nameAsWritten);
    currentElement = LowerCase(nameAsWritten);
    const Element* const element = FindElement(currentElement);
    if (element == nullptr) {
        FatalError("Unrecognized identifier: " + nameAsWritten);
        return;
    }
    if (element->onEnd != nullptr) {
        (this->*element->onEnd)();
    }
    DebugOutput(kLogTrace, nameAsWritten);
}

void TBmcI2cXMLParser::processingInstruction(const char*, const char*) {}

void TBmcI2cXMLParser::notationDecl(const char*, const char*, const char*) {}

void TBmcI2cXMLParser::FatalError(const char* message) {
    DebugOutput(kLogFatal, message == nullptr ? "" : message);
}

void TBmcI2cXMLParser::FatalError(std::string message) { FatalError(message.c_str()); }

void TBmcI2cXMLParser::DebugOutput(EZDXLogSeverity severity, std::string text) {
    NQUVZDX20::TRootObject::GetCoreLogger()->Log(
        severity, "BMCI2C Parser Line " + std::to_string(GetCurLine()) + ":" + text);
}

// --- Start tags. What a tag leaves out keeps the value of the last tag of its kind. ---

void TBmcI2cXMLParser::StartRoot(const std::string& name, const Attributes& attributes) {
    if (const auto given = attributes.find("version"); given != attributes.end()) {
        version = given->second;
    }
    RequireGiven(version, "Version", name);
}

void TBmcI2cXMLParser::StartProperty(const std::string& name, const Attributes& attributes) {
    ReadAttributes(attributes,
                   {{"name", [this](const std::string& value) { ReadPropertyName(value); }},
                    {"type", [this](const std::string& value) { propertyType = value; }},
                    {"index", [this](const std::string& value) { propertyIndex = value; }}});
    RequireGiven(propertyName, "Name", name);
    RequireGiven(propertyType + propertyIndex, "Type", name);
}

void TBmcI2cXMLParser::ReadPropertyName(const std::string& value) {
    propertyName = LowerCase(value);
    if (propertyName != kMachineTypeProperty && propertyName != kMessageProperty) {
        FatalError("Unrecognized Name:" + value);
    }
}

void TBmcI2cXMLParser::StartGenRecommendation(const std::string& name,
                                              const Attributes& attributes) {
    if (!oemBuild) {
        CollectRecommendation(name, attributes, WithAngleBrackets);
    }
}

void TBmcI2cXMLParser::StartOemRecommendation(const std::string& name,
                                              const Attributes& attributes) {
    if (oemBuild) {
        CollectRecommendation(name, attributes, AsWritten);
    }
}

void TBmcI2cXMLParser::CollectRecommendation(const std::string& name, const Attributes& attributes,
                                             std::string (*decode)(std::string)) {
    ReadAttributes(attributes,
                   {{"index", [this](const std::string& value) { recommendationIndex = value; }},
                    {"value", [this, decode](const std::string& value) {
                         recommendationValue = decode(value);
                     }}});
    RequireGiven(recommendationIndex, "Index", name);
    RequireGiven(recommendationValue, "Value", name);
    recommendationTexts.push_back(recommendationValue);
    DebugOutput(kLogFinest, "Added reco: " + recommendationValue);
}

void TBmcI2cXMLParser::StartQualifier(const std::string& name, const Attributes& attributes) {
    ReadAttributes(
        attributes,
        {{"name", [this](const std::string& value) { qualifierName = LowerCase(value); }},
         {"type", [this](const std::string& value) { qualifierType = value; }}});
    RequireGiven(qualifierName, "Name", name);
    RequireGiven(qualifierType, "Type", name);
}

void TBmcI2cXMLParser::StartValueArray(const std::string&, const Attributes& attributes) {
    ReadAttributes(attributes, {});
}

void TBmcI2cXMLParser::StartValue(const std::string&, const Attributes& attributes) {
    ReadAttributes(attributes, {});
    inValue = true;
}

void TBmcI2cXMLParser::StartEquate(const std::string& name, const Attributes& attributes) {
    ReadAttributes(attributes,
                   {{"realmt", [this](const std::string& value) { equateRealType = value; }},
                    {"xmlmt", [this](const std::string& value) { equateCatalogType = value; }}});
    RequireGiven(equateRealType, "Index", name);
    RequireGiven(equateCatalogType, "Value", name);
    machineTypeEquates.emplace(equateRealType, equateCatalogType);
}

void TBmcI2cXMLParser::StartMachine(const std::string& name, const Attributes& attributes) {
    ReadAttributes(attributes,
                   {{"type", [this](const std::string& value) { machineType = value; }}});
    RequireGiven(machineType, "Type", name);
    DebugOutput(kLogTrace, "before sharedptr");
    currentMachine = boost::make_shared<TMachine>(machineType);
    DebugOutput(kLogTrace, "after sharedptr");
    for (const auto& [realType, catalogType] : machineTypeEquates) {
        if (catalogType == machineType) {
            currentMachine->AddMachineType(realType);
        }
    }
    machineOpen = true;
}

void TBmcI2cXMLParser::ReadAttributes(const Attributes& attributes,
                                      const AttributeReaders& readers) {
    for (const auto& [attribute, value] : attributes) {
        if (const auto reader = readers.find(attribute); reader != readers.end()) {
            reader->second(value);
        } else {
            FatalError("Unrecognized Attribute:" + attribute);
        }
    }
}

void TBmcI2cXMLParser::RequireGiven(const std::string& value, const std::string& what,
                                    const std::string& name) {
    if (value.empty()) {
        FatalError("No " + what + " Specified for " + name + " identifier");
    }
}

// --- End tags. ---

void TBmcI2cXMLParser::EndQualifier() { qualifierName.clear(); }

void TBmcI2cXMLParser::EndValue() { inValue = false; }

void TBmcI2cXMLParser::EndMachine() {
    AddProperties();
    machineList.push_back(currentMachine);
    machineOpen = false;
}

void TBmcI2cXMLParser::AddProperties() {
    const TXMessage message = workMessage;
    // Only a caller's mistake leads here, never a catalog: in well-formed XML a machine starts
    // before it ends. Throws instead of asserting, because the CIM server's process must survive.
    if (currentMachine == nullptr) {
        throw std::logic_error("No machine was opened that could take the properties: px != 0");
    }
    currentMachine->SetMessege(message);
    workMessage.ClearAll();
}

// --- Text. ---

void TBmcI2cXMLParser::characters(const char* text, unsigned int) {
    const std::string piece = text;
    DebugOutput(kLogFinest, "--CHARACTER DATA:" + piece);
    if (inValue && qualifierName == kIgnoredValues) {
        return;
    }
    if (inValue && propertyName == kMessageProperty) {
        UseMessageValue(piece);
        return;
    }
    StorePendingRecommendation();
    inValue = false;
}

void TBmcI2cXMLParser::UseMessageValue(const std::string& text) {
    if (qualifierName == kRecommendation) {
        GatherRecommendation(text);
        return;  // more text of the same value may follow
    }
    if (qualifierName == kStandardRecommendation) {
        AddBuildRecommendation(text, !oemBuild);
    } else if (qualifierName == kOemRecommendation) {
        AddBuildRecommendation(text, oemBuild);
    } else {
        AddMessageText(text);
    }
    inValue = false;
}

void TBmcI2cXMLParser::GatherRecommendation(const std::string& text) {
    pendingRecommendation = true;
    DebugOutput(kLogTrace, text);
    pendingRecommendationText += text;
}

void TBmcI2cXMLParser::AddBuildRecommendation(const std::string& text, bool isForThisBuild) {
    DebugOutput(kLogTrace, text);
    if (!text.empty() && isForThisBuild) {
        workMessage.AddRecommendation(PropertyNumber(), text);
    }
}

// Message texts are kept by 16 bits of the number, recommendations by the whole number.
void TBmcI2cXMLParser::AddMessageText(const std::string& text) {
    DebugOutput(kLogTrace, "Added " + text);
    const unsigned int number = PropertyNumber();
    workMessage.AddValue(static_cast<unsigned short>(number & 0xFFFFU), text);
    for (const std::string& recommendation : recommendationTexts) {
        workMessage.AddRecommendation(number, recommendation);
    }
}

void TBmcI2cXMLParser::StorePendingRecommendation() {
    if (!pendingRecommendation) {
        return;
    }
    workMessage.AddRecommendation(PropertyNumber(), pendingRecommendationText);
    pendingRecommendationText.clear();
    pendingRecommendation = false;
}

unsigned int TBmcI2cXMLParser::PropertyNumber() const {
    const std::optional<unsigned int> number = MessageNumber(propertyIndex);
    if (!number) throw IndexError(GetCurLine(), propertyIndex);
    return *number;
}

// --- Helpers for catalog readers; not used for reading the catalog itself. ---

unsigned int TBmcI2cXMLParser::HexCast(std::string digits) {
    std::istringstream input("0x" + digits);
    input.imbue(std::locale::classic());
    unsigned int number = 0;
    input >> std::hex >> number;
    return number;
}

unsigned int TBmcI2cXMLParser::SearchVector(std::string wanted, std::vector<std::string> strings) {
    constexpr std::size_t kMostSearched = 256;
    const std::size_t searched = std::min(strings.size(), kMostSearched);
    for (std::size_t position = 0; position < searched; ++position) {
        if (strings[position] == wanted) {
            return static_cast<unsigned int>(position);
        }
    }
    FatalError("Unrecognized String: " + wanted);
    return static_cast<unsigned int>(strings.size());
}
