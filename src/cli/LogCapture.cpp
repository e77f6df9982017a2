#include <cli/LogCapture.h>
#include <platform/settings/Environment.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string_view>

namespace cli {

namespace {

constexpr const char* kVariable = "BMCI2C_LOG_CAPTURE";
constexpr int kGravestTrace = 3;  // severities from here on tell what is done, not what is wrong
constexpr std::array<std::string_view, 3> kPlatformPrefixes = {"SP: ", "DMI: ", "Settings: "};

bool IsTrouble(const LogLine& line) {
    return line.severity < kGravestTrace &&
           std::any_of(kPlatformPrefixes.begin(), kPlatformPrefixes.end(),
                       [&](std::string_view prefix) { return line.text.starts_with(prefix); });
}

}  // namespace

LogCapture::LogCapture() {
    if (platform::EnvironmentText(kVariable)) return;
    file = ::memfd_create("bmci2c-log", MFD_CLOEXEC);
    if (file >= 0) ::setenv(kVariable, ("/proc/self/fd/" + std::to_string(file)).c_str(), 1);
}

LogCapture::~LogCapture() {
    if (file < 0) return;
    ::unsetenv(kVariable);
    ::close(file);
}

std::vector<LogLine> LogCapture::Lines() const {
    if (file < 0) return {};
    std::string text;
    std::array<char, 4096> piece;
    for (;;) {
        const ssize_t length =
            ::pread(file, piece.data(), piece.size(), static_cast<off_t>(text.size()));
        if (length <= 0) break;
        text.append(piece.data(), static_cast<std::size_t>(length));
    }
    return ReadLogLines(text);
}

std::vector<LogLine> ReadLogLines(const std::string& text) {
    std::vector<LogLine> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        const auto object = nlohmann::json::parse(line, nullptr, false);
        if (!object.is_object()) continue;
        const auto severity = object.find("severity");
        const auto message = object.find("text");
        if (severity == object.end() || !severity->is_number_integer()) continue;
        if (message == object.end() || !message->is_string()) continue;
        lines.push_back({severity->get<int>(), message->get<std::string>()});
    }
    return lines;
}

std::vector<std::string> Troubles(const std::vector<LogLine>& lines) {
    std::vector<std::string> troubles;
    for (const LogLine& line : lines) {
        const bool isNew = std::find(troubles.begin(), troubles.end(), line.text) == troubles.end();
        if (IsTrouble(line) && isNew) troubles.push_back(line.text);
    }
    return troubles;
}

}  // namespace cli
