#include <platform/diagnostics/ILogger.h>
#include <platform/diagnostics/LineFormat.h>
#include <spdlog/pattern_formatter.h>
#include <syslog.h>

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

namespace NQUVZDX20 {

namespace {

void Append(std::string_view text, spdlog::memory_buf_t& line) {
    line.append(text.data(), text.data() + text.size());
}

// A number of the line's severity, by a function of the severity.
class NumberFlag final : public spdlog::custom_flag_formatter {
public:
    using Function = int (*)(int severity);

    explicit NumberFlag(Function numberOfSeverity) : number(numberOfSeverity) {}

    void format(const spdlog::details::log_msg& message, const std::tm& /*time*/,
                spdlog::memory_buf_t& line) override {
        Append(std::to_string(number(SeverityOf(message.level))), line);
    }

    std::unique_ptr<spdlog::custom_flag_formatter> clone() const override {
        return std::make_unique<NumberFlag>(number);
    }

private:
    Function number;
};

class JsonFormat final : public spdlog::formatter {
public:
    void format(const spdlog::details::log_msg& message, spdlog::memory_buf_t& line) override {
        const nlohmann::ordered_json object = {
            {"severity", SeverityOf(message.level)},
            {"text", std::string(message.payload.data(), message.payload.size())}};
        Append(object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n", line);
    }

    std::unique_ptr<spdlog::formatter> clone() const override {
        return std::make_unique<JsonFormat>();
    }
};

// A pattern in which %* stands for a number of the severity.
std::unique_ptr<spdlog::formatter> MakePattern(NumberFlag::Function number, std::string pattern,
                                               std::string end) {
    spdlog::pattern_formatter::custom_flags flags;
    flags.emplace('*', std::make_unique<NumberFlag>(number));
    return std::make_unique<spdlog::pattern_formatter>(
        std::move(pattern), spdlog::pattern_time_type::local, std::move(end), std::move(flags));
}

int SyslogPriority(int severity) {
    constexpr int kPriorities[] = {LOG_CRIT, LOG_WARNING, LOG_ERR, LOG_INFO, LOG_DEBUG};
    static_assert(std::size(kPriorities) == kLogFinest + 1);
    return LOG_DAEMON | kPriorities[severity];
}

}  // namespace

spdlog::level::level_enum LevelOf(int severity) {
    const int known = std::clamp<int>(severity, kLogFatal, kLogFinest);
    return static_cast<spdlog::level::level_enum>(spdlog::level::critical - known);
}

int SeverityOf(spdlog::level::level_enum level) { return spdlog::level::critical - level; }

std::unique_ptr<spdlog::formatter> MakeTextFormat() {
    return MakePattern([](int severity) { return severity; },
                       "%Y-%m-%d %H:%M:%S.%e bmci2c[%P] %*: %v", "\n");
}

std::unique_ptr<spdlog::formatter> MakeJsonFormat() { return std::make_unique<JsonFormat>(); }

std::unique_ptr<spdlog::formatter> MakeSyslogFormat() {
    return MakePattern(SyslogPriority, "<%*>%b %d %H:%M:%S bmci2c[%P]: %v", "");
}

}  // namespace NQUVZDX20
