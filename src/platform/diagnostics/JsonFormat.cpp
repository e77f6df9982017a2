#include <limits.h>
#include <platform/diagnostics/JsonFormat.h>
#include <platform/diagnostics/LineFormat.h>
#include <platform/diagnostics/LinePattern.h>
#include <platform/diagnostics/LogNode.h>
#include <unistd.h>

#include <array>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace NQUVZDX20 {

namespace {

std::string HostName() {
    std::array<char, HOST_NAME_MAX + 1> name{};
    ::gethostname(name.data(), name.size());
    return name.data();
}

class JsonFormat final : public spdlog::formatter {
public:
    void format(const spdlog::details::log_msg& message, spdlog::memory_buf_t& line) override {
        nlohmann::ordered_json object = {{"time", TimeOf(message)},
                                         {"pid", ::getpid()},
                                         {"host", host},
                                         {"severity", SeverityOf(message.level)}};
        if (const std::optional<int> node = LogNode::Current()) object["node"] = *node;
        object["text"] = std::string(message.payload.data(), message.payload.size());
        Append(object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n", line);
    }

    std::unique_ptr<spdlog::formatter> clone() const override {
        return std::make_unique<JsonFormat>();
    }

private:
    std::string TimeOf(const spdlog::details::log_msg& message) {
        spdlog::memory_buf_t time;
        timePattern->format(message, time);
        return {time.data(), time.size()};
    }

    const std::unique_ptr<spdlog::formatter> timePattern =
        MakePattern("%Y-%m-%dT%H:%M:%S.%e%z", "", {});
    const std::string host = HostName();
};

}  // namespace

std::unique_ptr<spdlog::formatter> MakeJsonFormat() { return std::make_unique<JsonFormat>(); }

}  // namespace NQUVZDX20
