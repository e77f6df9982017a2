// Reads the message catalog into a list of machine entries.
//
//     TBmcI2cXMLParser parser;
//     parser.Parse(text, length);
//     for (const boost::shared_ptr<TMachine>& machine : parser.GetMachineList()) { ... }
//
// Errors in a catalog are logged with their line at severity 0, and reading continues. A message
// number that is not decimal throws IndexError; the machines read until then stay. One parser reads
// one file: a second Parse adds to the first.
#pragma once

#include <catalog/TMachine.h>
#include <platform/diagnostics/ILogger.h>
#include <platform/diagnostics/TXmlParser.h>

#include <boost/shared_ptr.hpp>
#include <functional>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

class TBmcI2cXMLParser : public NQUVZDX20::TXmlParser {
public:
    // Determines once whether this is an OEM build, which decides which recommendations are read.
    TBmcI2cXMLParser();
    ~TBmcI2cXMLParser() override;

    void StartElement(const char* name, std::map<std::string, std::string>& attributes) override;
    void EndElement(const char* name) override;
    void processingInstruction(const char* target, const char* data) override;
    void characters(const char* text, unsigned int length) override;
    void notationDecl(const char* name, const char* publicId, const char* systemId) override;
    // Logs an error with the current line; a null message leaves the line's text empty.
    void FatalError(const char* message) override;
    void FatalError(std::string message) override;

    // In file order. The entries are shared with the parser.
    std::list<boost::shared_ptr<TMachine>> GetMachineList() const { return machineList; }

    // A mark for the caller, who reads the catalog once; the parser itself does not use it.
    bool IsDataCollected() const { return dataCollected; }
    void SetDataCollected(bool collected) { dataCollected = collected; }

    // Gives the texts gathered so far to the current machine. Throws std::logic_error when no
    // machine was opened yet.
    void AddProperties();

    // Reads hexadecimal digits without prefix; 0 if there are none, the largest number on overflow.
    unsigned int HexCast(std::string digits);

    // The position of `wanted` among the first 256 strings; if it is missing, reports an error and
    // returns the number of all strings.
    unsigned int SearchVector(std::string wanted, std::vector<std::string> strings);

    // Logs a text with the current line.
    void DebugOutput(NQUVZDX20::EZDXLogSeverity severity, std::string text);

private:
    using Attributes = std::map<std::string, std::string>;
    // Handlers of attribute values, by the attribute's name.
    using AttributeReaders = std::map<std::string_view, std::function<void(const std::string&)>>;

    // Handlers of an element's two tags; `onEnd` may be null.
    struct Element {
        std::string_view name;
        void (TBmcI2cXMLParser::*onStart)(const std::string& name, const Attributes& attributes);
        void (TBmcI2cXMLParser::*onEnd)();
    };
    static const Element* FindElement(std::string_view lowerCaseName);

    void StartRoot(const std::string& name, const Attributes& attributes);
    void StartProperty(const std::string& name, const Attributes& attributes);
    void StartGenRecommendation(const std::string& name, const Attributes& attributes);
    void StartOemRecommendation(const std::string& name, const Attributes& attributes);
    void StartQualifier(const std::string& name, const Attributes& attributes);
    void StartValueArray(const std::string& name, const Attributes& attributes);
    void StartValue(const std::string& name, const Attributes& attributes);
    void StartEquate(const std::string& name, const Attributes& attributes);
    void StartMachine(const std::string& name, const Attributes& attributes);

    void EndQualifier();
    void EndValue();
    void EndMachine();

    void ReadAttributes(const Attributes& attributes, const AttributeReaders& readers);
    void ReadPropertyName(const std::string& value);
    void RequireGiven(const std::string& value, const std::string& what, const std::string& name);
    void CollectRecommendation(const std::string& name, const Attributes& attributes,
                               std::string (*decode)(std::string));

    void UseMessageValue(const std::string& text);
    void GatherRecommendation(const std::string& text);
    void AddBuildRecommendation(const std::string& text, bool isForThisBuild);
    void AddMessageText(const std::string& text);
    void StorePendingRecommendation();
    // The index of the last property. Throws IndexError.
    unsigned int PropertyNumber() const;

    std::string version;
    std::string currentElement;  // lower-cased, as all names of elements below
    std::string propertyIndex;
    std::string recommendationIndex;
    std::string recommendationValue;
    std::string pendingRecommendationText;
    bool pendingRecommendation = false;            // stored once text outside its value follows
    std::vector<std::string> recommendationTexts;  // of the whole file: they join later messages
    std::string equateRealType;
    std::string equateCatalogType;
    std::map<std::string, std::string> machineTypeEquates;  // real type to catalog type
    std::list<boost::shared_ptr<TMachine>> machineList;
    std::string propertyName;  // lower-cased
    std::string propertyType;
    std::string qualifierName;  // lower-cased; of the open qualifier only
    std::string qualifierType;
    std::string machineType;
    TXMessage workMessage;  // gathers what belongs to the next machine that ends
    boost::shared_ptr<std::vector<std::string>> spareStrings;  // not in use
    boost::shared_ptr<TMachine> currentMachine;
    bool inValue = false;
    bool machineOpen = false;  // informational
    bool dataCollected = false;
    bool oemBuild = false;
};
