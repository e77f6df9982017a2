#include <cli/ResultLines.h>

#include <regex>

namespace cli {

std::vector<ResultLine> FindResultLines(const std::string& text) {
    static const std::regex pattern("166-([0-9]{3,5})-([0-9]{3,9}) ");
    std::vector<ResultLine> lines;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match)
        lines.push_back({static_cast<std::size_t>(match->position()),
                         static_cast<unsigned int>(std::stoul(match->str(1))),
                         static_cast<unsigned int>(std::stoul(match->str(2)))});
    return lines;
}

bool IsUnjudgedController(const ResultLine& line) {
    return line.message >= kBadLength && line.message <= kLastCompletionCode;
}

}  // namespace cli
