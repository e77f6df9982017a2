#include <mof/Names.h>

#include <algorithm>

namespace mof {

namespace {

char Folded(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

bool SameName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Folded(x) == Folded(y); });
}

std::string FoldedName(std::string_view name) {
    std::string folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), Folded);
    return folded;
}

}  // namespace mof
