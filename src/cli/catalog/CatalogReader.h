// The catalog's own parser at work, with what an author wants to know of it: every report with its
// place, and the outline.
#pragma once

#include <catalog/TBmcI2cXMLParser.h>
#include <cli/catalog/OutlineBuilder.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

class CatalogReader : public TBmcI2cXMLParser {
public:
    // Reads a whole file. An index that is not a number is reported and its values are left out;
    // the parser alone would stop there.
    void Read(std::string text);

    // In the order of reading.
    const CatalogReports& Errors() const { return errors; }
    const OutlineBuilder& Outline() const { return builder; }

    using TBmcI2cXMLParser::FatalError;
    void StartElement(const char* name, std::map<std::string, std::string>& attributes) override;
    void EndElement(const char* name) override;
    void characters(const char* text, unsigned int length) override;
    void FatalError(const char* message) override;

private:
    struct OpenElement {
        std::string name;
        int line;
    };

    CatalogPlace Here() const { return {GetCurLine(), GetCurColumn()}; }
    void CorrectIndex(std::map<std::string, std::string>& attributes);
    std::string SyntaxSentence() const;
    std::string MismatchedTag() const;
    // The word at the place of the error: behind its beginning, up to one of the ends.
    std::string WordHere(std::string_view beginning, std::string_view ends) const;

    std::string_view document;
    std::vector<OpenElement> open;
    OutlineBuilder builder;
    CatalogReports errors;
};

}  // namespace cli
