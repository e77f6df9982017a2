#include <mof/generator/ValueNames.h>

#include <cctype>
#include <stdexcept>

namespace mof {

namespace {

std::vector<std::string> Texts(const Property& property, const std::string& qualifierName) {
    const Qualifier* qualifier = FindQualifier(property.qualifiers, qualifierName);
    if (qualifier == nullptr) return {};
    std::vector<std::string> texts;
    for (const Scalar& element : std::get<std::vector<Scalar>>(qualifier->value)) {
        texts.push_back(std::get<std::string>(element));
    }
    return texts;
}

bool IsLetterOrDigit(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0;
}

// The words of a text with capitals, joined: "Enabled but Offline" is "EnabledButOffline".
std::string Identifier(const std::string& text) {
    std::string identifier;
    bool beginsWord = true;
    for (const char character : text) {
        if (IsLetterOrDigit(character)) {
            identifier += beginsWord ? static_cast<char>(std::toupper(character)) : character;
        }
        beginsWord = !IsLetterOrDigit(character);
    }
    if (identifier.empty())
        throw std::runtime_error("No name can be made of value '" + text + "'.");
    return identifier;
}

}  // namespace

std::vector<NamedValue> NamedValues(const Property& property) {
    const auto values = Texts(property, "ValueMap");
    const auto names = Texts(property, "Values");
    if (values.size() != names.size()) {
        throw std::runtime_error("ValueMap and Values of property '" + property.name +
                                 "' differ in length.");
    }
    std::vector<NamedValue> named;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (values[i].find("..") == std::string::npos) {
            named.push_back({Identifier(names[i]), values[i]});
        }
    }
    return named;
}

}  // namespace mof
