// Suggests the known word that a misspelled one probably means.
#pragma once

#include <string>
#include <vector>

namespace cli {

// The word that differs least; empty when none is close: at most two letters may differ, be missing
// or be extra, and fewer than the word has.
std::string Nearest(const std::string& word, const std::vector<std::string>& known);

// The same without regard to letter case; the word as `known` spells it.
std::string NearestInAnyCase(const std::string& word, const std::vector<std::string>& known);

}  // namespace cli
