#include <cli/Spelling.h>
#include <mof/Names.h>

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace cli {

namespace {

constexpr std::size_t kMostDifferences = 2;

// How many letters must be changed, added or removed to make one word of the other.
std::size_t Differences(const std::string& from, const std::string& to) {
    std::vector<std::size_t> row(to.size() + 1);  // for the letters of `from` up to now
    std::iota(row.begin(), row.end(), 0);
    for (const char letter : from) {
        std::size_t before = row[0]++;
        for (std::size_t i = 0; i < to.size(); ++i) {
            const std::size_t changed = before + (letter == to[i] ? 0 : 1);
            before = row[i + 1];
            row[i + 1] = std::min({changed, row[i] + 1, row[i + 1] + 1});
        }
    }
    return row.back();
}

}  // namespace

std::string Nearest(const std::string& word, const std::vector<std::string>& known) {
    std::size_t least = std::min(kMostDifferences + 1, word.size());
    std::string nearest;
    for (const std::string& candidate : known) {
        const std::size_t differences = Differences(word, candidate);
        if (differences >= least) continue;
        least = differences;
        nearest = candidate;
    }
    return nearest;
}

std::string NearestInAnyCase(const std::string& word, const std::vector<std::string>& known) {
    std::vector<std::string> folded;
    folded.reserve(known.size());
    for (const std::string& candidate : known) folded.push_back(mof::FoldedName(candidate));
    const std::string nearest = Nearest(mof::FoldedName(word), folded);
    const auto found = std::find(folded.begin(), folded.end(), nearest);
    return found == folded.end() ? "" : known[static_cast<std::size_t>(found - folded.begin())];
}

}  // namespace cli
