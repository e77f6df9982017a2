#include <catalog/MessageIndex.h>
#include <cli/catalog/CatalogReader.h>
#include <cli/catalog/ParserSentences.h>
#include <mof/Names.h>

#include <algorithm>

namespace cli {

namespace {

// Neither a text that the test uses nor a recommendation of one.
constexpr const char* kUnusedIndex = "65535";

constexpr const char* kEnd = "Nothing from here on is read.";

// Of an index that the parser does not take.
std::string IndexSentence(const std::string& index) {
    const std::size_t sign = index.find_first_of("+-") == 0 ? 1 : 0;
    const bool isDecimal =
        index.size() > sign && index.find_first_not_of("0123456789", sign) == index.npos;
    return "The index '" + index + (isDecimal ? "' is too high." : "' is not decimal.");
}

std::string_view LineOf(std::string_view document, int line) {
    for (; line > 1; --line)
        document.remove_prefix(std::min(document.find('\n'), document.size() - 1) + 1);
    return document.substr(0, document.find('\n'));
}

}  // namespace

void CatalogReader::Read(std::string text) {
    document = text;
    Parse(text.data(), text.size());
    if (!SyntaxError().empty())
        errors.push_back({Here(), CatalogReport::Severity::Error, SyntaxSentence()});
    document = {};
}

void CatalogReader::StartElement(const char* name, std::map<std::string, std::string>& attributes) {
    open.push_back({name, GetCurLine()});
    if (mof::FoldedName(name) == "property") CorrectIndex(attributes);
    builder.Start(name, attributes, Here());
    TBmcI2cXMLParser::StartElement(name, attributes);
}

void CatalogReader::EndElement(const char* name) {
    builder.End(name);
    TBmcI2cXMLParser::EndElement(name);
    open.pop_back();
}

void CatalogReader::characters(const char* text, unsigned int length) {
    builder.Text(text);
    TBmcI2cXMLParser::characters(text, length);
}

void CatalogReader::FatalError(const char* message) {
    const std::string report = message == nullptr ? "" : message;
    const std::string element = open.empty() ? "" : open.back().name;
    CatalogReport error{Here(), CatalogReport::Severity::Error, ParserSentence(report, element)};
    // A name that is not known is reported for both its tags; a syntax error follows in Read().
    const bool isTold = !errors.empty() && errors.back().text == error.text;
    if (!isTold && report != SyntaxError()) errors.push_back(std::move(error));
}

void CatalogReader::CorrectIndex(std::map<std::string, std::string>& attributes) {
    const auto index = attributes.find("index");
    if (index == attributes.end() || MessageNumber(index->second)) return;
    errors.push_back({Here(), CatalogReport::Severity::Error, IndexSentence(index->second)});
    index->second = kUnusedIndex;
}

std::string CatalogReader::SyntaxSentence() const {
    const std::string& whole = SyntaxError();
    const auto isAbout = [&](const char* reason) { return whole.find(reason) != whole.npos; };
    if (isAbout("mismatched tag") && !open.empty()) return MismatchedTag();
    if (isAbout("undefined entity"))
        return "The entity '" + WordHere("&", "; \t\r") + "' is not declared. " + kEnd;
    if (isAbout("ends too early") && !open.empty())
        return "The file ends before </" + open.back().name + ">, which line " +
               std::to_string(open.back().line) + " opened.";
    const std::size_t reason = whole.find(": ");
    const char* const advice =
        isAbout("invalid token") ? " In a text, write & as &amp; and < as &lt;." : "";
    return "Not well-formed XML" + (reason == whole.npos ? "." : whole.substr(reason)) + advice;
}

std::string CatalogReader::MismatchedTag() const {
    return "The end tag </" + WordHere("</", "> \t\r") + "> does not match <" + open.back().name +
           ">, which line " + std::to_string(open.back().line) + " opened. " + kEnd;
}

std::string CatalogReader::WordHere(std::string_view beginning, std::string_view ends) const {
    std::string_view rest = LineOf(document, GetCurLine());
    rest.remove_prefix(std::min(rest.size(), static_cast<std::size_t>(GetCurColumn() - 1)));
    if (rest.starts_with(beginning)) rest.remove_prefix(beginning.size());
    return std::string(rest.substr(0, rest.find_first_of(ends)));
}

}  // namespace cli
