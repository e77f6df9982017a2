#include <cli/run/RunJson.h>

#include <array>
#include <cstdio>
#include <ctime>

namespace cli {

namespace {

using std::chrono::milliseconds;

constexpr int kStatusOk = 0;       // of the CIM call, which reports no outcome of the test
constexpr int kReturnValueOk = 1;  // of RunDiagnostic, the same

// "2026-11-22T00:19:38.123Z".
std::string TimeText(std::chrono::system_clock::time_point time) {
    const auto sinceEpoch = std::chrono::floor<milliseconds>(time.time_since_epoch());
    const auto seconds = std::chrono::floor<std::chrono::seconds>(sinceEpoch);
    const std::time_t wholeSeconds = seconds.count();
    std::tm utc = {};
    ::gmtime_r(&wholeSeconds, &utc);
    std::array<char, 32> text;
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &utc);
    std::array<char, 8> fraction;
    std::snprintf(fraction.data(), fraction.size(), ".%03dZ",
                  static_cast<int>((sinceEpoch - seconds).count() % 1000));
    return std::string(text.data(), length) + fraction.data();
}

double Seconds(milliseconds time) { return static_cast<double>(time.count()) / 1000; }

template <class T>
Json Optional(const std::optional<T>& value) {
    return value ? Json(*value) : Json();
}

std::string Hexadecimal(const std::vector<std::uint8_t>& bytes) {
    constexpr const char* kDigits = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0xF];
    }
    return text;
}

const char* NameOf(Outcome outcome) {
    switch (outcome) {
        case Outcome::Examined:
            return "examined";
        case Outcome::Refused:
            return "refused";
        case Outcome::UnusableAnswer:
            return "unusable_answer";
        case Outcome::NotDelivered:
            return "not_delivered";
        default:
            return "not_asked";
    }
}

const char* NameOf(BusState state) {
    switch (state) {
        case BusState::Good:
            return "good";
        case BusState::Failed:
            return "failed";
        default:
            return "unjudged";
    }
}

Json GenerationJson(Generation generation) {
    switch (generation) {
        case Generation::First:
            return 1;
        case Generation::Second:
            return 2;
        case Generation::Unknown:
            return "unknown";
        default:
            return nullptr;
    }
}

Json TroubleJson(const platform::Trouble& trouble) {
    return {{"code", trouble.code}, {"text", trouble.text}, {"advice", trouble.advice}};
}

Json MessageJson(const ResultMessage& message) {
    return {{"message", message.line}, {"recommendations", message.recommendations}};
}

Json MachineJson(const MachineResult& machine) {
    return {{"type", machine.type},
            {"bios_id", machine.biosId},
            {"oxc", Optional(machine.oxc)},
            {"catalog", machine.catalog},
            {"supported", machine.supported}};
}

Json BussesJson(const std::vector<Bus>& busses) {
    Json array = Json::array();
    for (const Bus& bus : busses)
        array.push_back({{"bus", bus.number}, {"state", NameOf(bus.state)}});
    return array;
}

Json ControllerJson(const ControllerResult& controller) {
    const ResultMessage message = controller.message.value_or(ResultMessage{});
    return {{"node", controller.node},
            {"address", controller.address},
            {"outcome", NameOf(controller.outcome)},
            {"generation", GenerationJson(controller.generation)},
            {"completion_code", Optional(controller.completionCode)},
            {"data", Hexadecimal(controller.data)},
            {"attempts", controller.attempts},
            {"seconds", Seconds(controller.elapsed)},
            {"busses", BussesJson(controller.busses)},
            {"trouble", controller.trouble ? TroubleJson(*controller.trouble) : Json()},
            {"length", Optional(controller.length)},
            {"unused_byte", controller.hasUnusedByte},
            {"message", controller.message ? Json(message.line) : Json()},
            {"recommendations", message.recommendations}};
}

// One object for each element; always an array.
template <class T, class Function>
Json ArrayOf(const std::vector<T>& elements, const Function& toJson) {
    Json array = Json::array();
    for (const T& element : elements) array.push_back(toJson(element));
    return array;
}

Json FailedJson(const std::vector<ControllerResult>& controllers) {
    Json array = Json::array();
    for (const ControllerResult& controller : controllers)
        for (const FailedBus& failed : controller.failedBusses) {
            Json object = {{"node", controller.node}, {"bus", failed.bus}};
            object.update(MessageJson(failed.message));
            array.push_back(std::move(object));
        }
    return array;
}

}  // namespace

Json RunJson(const TestRun& run) {
    const RunResult& result = run.result;
    return {{"format_version", kFormatVersion},
            {"version", BMCI2C_VERSION},
            {"simulated", result.machine.simulated},
            {"verdict", ::NameOf(result.verdict)},
            {"begin", TimeText(result.begin)},
            {"end", TimeText(result.end)},
            {"seconds", Seconds(result.elapsed)},
            {"machine", MachineJson(result.machine)},
            {"controllers", ArrayOf(result.controllers, ControllerJson)},
            {"failed", FailedJson(result.controllers)},
            {"status", kStatusOk},
            {"return_value", kReturnValueOk},
            {"job", run.job},
            {"records", run.records},
            {"end_of_record", Optional(result.endOfRecord)},
            {"messages", ArrayOf(result.messages, MessageJson)},
            {"troubles", ArrayOf(result.troubles, TroubleJson)}};
}

}  // namespace cli
