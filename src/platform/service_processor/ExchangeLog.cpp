#include <platform/diagnostics/TRootObject.h>
#include <platform/service_processor/ExchangeLog.h>
#include <platform/service_processor/InWords.h>

namespace platform {

namespace {

void Log(NQUVZDX20::EZDXLogSeverity severity, const std::string& text) {
    NQUVZDX20::TRootObject::GetCoreLogger()->Log(severity, "SP: " + text);
}

std::string Counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string Beginning(const ExchangeFacts& facts) {
    return "node " + std::to_string(facts.node) + " (" + facts.way + "): network function " +
           Hexadecimal(facts.request.netFn) + ", command " + Hexadecimal(facts.request.command) +
           ": ";
}

std::string Effort(int attempts, std::chrono::milliseconds elapsed) {
    return Counted(static_cast<std::size_t>(attempts), "attempt") + ", " +
           std::to_string(elapsed.count()) + " ms";
}

// What the caller counts: the completion code and the data bytes.
int ReportedLength(const IpmiAnswer& answer) {
    return answer.length.value_or(1 + static_cast<int>(answer.data.size()));
}

// A successful answer without data is useless to every command here.
bool IsTooShort(const IpmiAnswer& answer) {
    return answer.completionCode == kCompleted && ReportedLength(answer) <= 1;
}

}  // namespace

void LogAnswer(const ExchangeFacts& facts, const IpmiAnswer& answer) {
    const bool isTooShort = IsTooShort(answer);
    const bool isGood = answer.completionCode == kCompleted && !isTooShort;
    Log(isGood ? NQUVZDX20::kLogFinest : NQUVZDX20::kLogError,
        Beginning(facts) + "completion code " + Hexadecimal(answer.completionCode) +
            Meaning(answer.completionCode) + ", " + Counted(answer.data.size(), "data byte") +
            (isTooShort ? " (the answer is too short)" : "") + ", " +
            Effort(answer.attempts, facts.elapsed));
}

void LogTrouble(const ExchangeFacts& facts, const TransportError& error) {
    Log(NQUVZDX20::kLogError, Beginning(facts) + error.what() + " (no completion code, " +
                                  Effort(error.Attempts(), facts.elapsed) + ")");
}

void LogTrouble(const std::string& text) { Log(NQUVZDX20::kLogError, text); }

}  // namespace platform
