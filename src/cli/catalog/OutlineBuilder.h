// Builds the outline of a catalog from its tags, and warns about oddities of single tags.
#pragma once

#include <cli/catalog/CatalogOutline.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

class OutlineBuilder {
public:
    using Attributes = std::map<std::string, std::string>;

    void Start(const std::string& name, const Attributes& attributes, const CatalogPlace& place);
    void Text(std::string_view text);
    void End(const std::string& name);

    const CatalogOutline& Outline() const { return outline; }
    const CatalogReports& Warnings() const { return warnings; }

private:
    struct Value {
        CatalogPlace place;
        std::string text;
        bool isCut = false;  // an element within ended its text
    };

    void Warn(const CatalogPlace& place, const std::string& text);
    bool IsWithin(std::string_view element) const;
    // Takes an attribute over; one that is left out keeps its value, as in the parser.
    static bool Take(const Attributes& attributes, const char* name, std::string& value);

    void StartMachine(const Attributes& attributes, const CatalogPlace& place);
    void StartProperty(const Attributes& attributes, const CatalogPlace& place);
    void StartQualifier(const Attributes& attributes, const CatalogPlace& place);
    void StartEquate(const Attributes& attributes, const CatalogPlace& place);
    void StartValue(const CatalogPlace& place);
    void EndValue();
    void EndMachine();

    CatalogOutline outline;
    CatalogReports warnings;
    std::vector<std::string> open;  // names in small letters

    std::string machineType;
    std::string propertyName;
    std::string propertyIndex;
    std::string qualifierName;  // in small letters; of the open one
    std::string equateRealType;
    std::string equateCatalogType;

    std::vector<CatalogText> texts;  // go to the next machine that ends
    std::optional<Value> value;      // the open one
};

}  // namespace cli
