// Which known word was meant by one that is not known.
#pragma once

#include <string>
#include <vector>

namespace cli {

// The word that differs least; empty when none is close: at most two letters may be wrong, missing
// or too many, and fewer than the word has.
std::string Nearest(const std::string& word, const std::vector<std::string>& known);

// The same without regard to letter case; the word as `known` spells it.
std::string NearestInAnyCase(const std::string& word, const std::vector<std::string>& known);

}  // namespace cli
