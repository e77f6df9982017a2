#include <platform/diagnostics/LinePattern.h>
#include <spdlog/pattern_formatter.h>

#include <array>
#include <utility>

namespace NQUVZDX20 {

namespace {

class FunctionFlag final : public spdlog::custom_flag_formatter {
public:
    explicit FunctionFlag(WriteFlag writeFlag) : write(writeFlag) {}

    void format(const spdlog::details::log_msg& message, const std::tm& time,
                spdlog::memory_buf_t& line) override {
        write(message, time, line);
    }

    std::unique_ptr<spdlog::custom_flag_formatter> clone() const override {
        return std::make_unique<FunctionFlag>(write);
    }

private:
    WriteFlag write;
};

// spdlog's own flag keeps an offset for ten seconds, and is wrong after a change to summer time.
void WriteZone(const spdlog::details::log_msg& /*message*/, const std::tm& time,
               spdlog::memory_buf_t& line) {
    std::array<char, sizeof "+0100"> digits{};
    std::strftime(digits.data(), digits.size(), "%z", &time);
    const std::string_view zone(digits.data());
    Append(zone.substr(0, 3), line);
    Append(":", line);
    Append(zone.substr(3), line);
}

}  // namespace

void Append(std::string_view text, spdlog::memory_buf_t& line) {
    line.append(text.data(), text.data() + text.size());
}

std::unique_ptr<spdlog::formatter> MakePattern(std::string pattern, std::string end,
                                               std::map<char, WriteFlag> flags) {
    flags.emplace('z', WriteZone);
    spdlog::pattern_formatter::custom_flags all;
    for (const auto& [flag, write] : flags)
        all.emplace(flag, std::make_unique<FunctionFlag>(write));
    return std::make_unique<spdlog::pattern_formatter>(
        std::move(pattern), spdlog::pattern_time_type::local, std::move(end), std::move(all));
}

}  // namespace NQUVZDX20
