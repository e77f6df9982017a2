// The catalog parser's reports as sentences for catalog authors.
#pragma once

#include <string>
#include <vector>

namespace cli {

// The sentence for a report of the parser about an element, whose name is as written. A report
// without a sentence of its own is given back as one.
std::string ParserSentence(const std::string& report, const std::string& element);

// Adds " Did you mean 'X'?" when there is an X.
std::string WithSuggestion(const std::string& sentence, const std::string& nearest);

// The element names of a catalog as the guide spells them.
const std::vector<std::string>& CatalogElements();

}  // namespace cli
