#include <platform/diagnostics/LogNode.h>
#include <test/CoreLog.h>
#include <test/RunLog.h>

#include <algorithm>

namespace {

using NQUVZDX20::EZDXLogSeverity;

constexpr char kPrefix[] = "Run: ";

void Write(EZDXLogSeverity severity, const std::string& text) {
    WriteCoreLog(severity, kPrefix + text);
}

std::string NameOf(const ControllerResult& controller) {
    return "node " + std::to_string(controller.node) + " (" + controller.address + ")";
}

std::string Counted(std::size_t count, const std::string& noun, const std::string& plural) {
    return std::to_string(count) + " " + (count == 1 ? noun : plural);
}

bool IsExamined(const ControllerResult& controller) {
    return controller.outcome == Outcome::Examined;
}

std::size_t FailedBusses(const RunResult& result) {
    std::size_t count = 0;
    for (const ControllerResult& controller : result.controllers) {
        count += controller.failedBusses.size();
    }
    return count;
}

std::string Summary(const RunResult& result) {
    const auto examined = std::ranges::count_if(result.controllers, IsExamined);
    return "The I2C bus test of machine type '" + result.machine.type + "' ended: verdict " +
           NameOf(result.verdict) + ", " + std::to_string(examined) + " of " +
           Counted(result.controllers.size(), "controller", "controllers") + " examined, " +
           Counted(FailedBusses(result), "failed bus", "failed busses") + ", " +
           std::to_string(result.elapsed.count()) + " ms.";
}

void WriteLines(const RunResult& result) {
    for (const ControllerResult& controller : result.controllers) {
        const NQUVZDX20::LogNode linesAreAbout(controller.node);
        for (const FailedBus& failed : controller.failedBusses) {
            Write(NQUVZDX20::kLogError, "bus " + std::to_string(failed.bus) + " of " +
                                            NameOf(controller) + " has failed");
        }
    }
    Write(result.verdict == Verdict::Passed ? NQUVZDX20::kLogTrace : NQUVZDX20::kLogError,
          Summary(result));
    if (result.machine.simulated) {
        Write(NQUVZDX20::kLogWarning,
              "The machine was simulated: the result says nothing about this server.");
    }
}

// A failing log must not change the outcome of a run.
template <class Call>
void WithoutFailure(Call call) noexcept {
    try {
        call();
    } catch (...) {
        return;
    }
}

}  // namespace

void WriteRunLog(const RunResult& result) noexcept {
    WithoutFailure([&] { WriteLines(result); });
}

void WriteRunFailure(const char* reason) noexcept {
    WithoutFailure([&] {
        Write(NQUVZDX20::kLogError,
              "The I2C bus test ended with an error: " + std::string(reason) + ".");
    });
}
