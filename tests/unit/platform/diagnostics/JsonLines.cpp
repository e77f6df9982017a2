#include "JsonLines.h"

#include <limits.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <regex>

#include "TemporaryFolder.h"

namespace {

std::string ProcessAndHost() {
    std::array<char, HOST_NAME_MAX + 1> host{};
    ::gethostname(host.data(), host.size());
    return "\"pid\":" + std::to_string(::getpid()) + ",\"host\":\"" + host.data() + "\",";
}

std::string WithoutOrigin(const std::string& line) {
    static const std::regex kTime(
        R"(\{"time":"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}[+-]\d\d:\d\d",)");
    std::smatch time;
    if (!std::regex_search(line, time, kTime, std::regex_constants::match_continuous)) return line;
    const std::string rest = time.suffix();
    const std::string origin = ProcessAndHost();
    return rest.starts_with(origin) ? "{" + rest.substr(origin.size()) : line;
}

}  // namespace

std::vector<std::string> JsonLinesOf(const std::string& path) {
    std::vector<std::string> lines = LinesOf(path);
    std::transform(lines.begin(), lines.end(), lines.begin(), WithoutOrigin);
    return lines;
}
