#include <cli/DiagnosticRun.h>
#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/ResultLines.h>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace cli {

namespace {

constexpr std::uint64_t kMajorError = 5;
constexpr std::uint64_t kCriticalError = 6;

std::vector<host::Instance> Enumerate(host::Host& host, const std::string& className) {
    host::InstancesResult result = host.EnumerateInstances(ClassPath(className));
    if (!result.status.IsOk()) throw CallError("Enumerating " + className, result.status);
    return std::move(result.instances);
}

host::MethodResult CallRunDiagnostic(host::Host& host) {
    const std::vector<host::Instance> services = Enumerate(host, kServiceClass);
    if (services.empty())
        return {.status = {CMPI_RC_ERR_NOT_FOUND, "The module offers no diagnostic service."},
                .returnValue = {},
                .out = {}};
    return host.InvokeMethod(services.front().path, "RunDiagnostic", {});
}

void RequireSuccess(const host::MethodResult& result) {
    if (!result.status.IsOk()) throw CallError("Running the I2C bus test", result.status);
}

// The job that the call gave back, whole: a reference to it leads to the enumerated one.
std::optional<host::Instance> JobOf(host::Host& host, const host::MethodResult& result) {
    const host::Value* const job = host::FindValue(result.out, "Job");
    if (job == nullptr) return std::nullopt;
    if (const auto* whole = std::get_if<std::shared_ptr<const host::Instance>>(&job->data))
        return **whole;
    const auto* path = std::get_if<std::shared_ptr<const host::ObjectPath>>(&job->data);
    if (path == nullptr) return std::nullopt;
    const std::vector<host::Instance> jobs = Enumerate(host, kJobClass);
    const std::string wanted = TextOf((*path)->keys, "InstanceID");
    const auto found = std::find_if(jobs.begin(), jobs.end(), [&](const host::Instance& one) {
        return TextOf(one.properties, "InstanceID") == wanted;
    });
    return found == jobs.end() ? std::nullopt : std::optional(*found);
}

bool HasState(const host::Instance& record, std::uint64_t state) {
    const host::Value* const value = host::FindValue(record.properties, "CompletionState");
    const auto* number = value == nullptr ? nullptr : std::get_if<std::uint64_t>(&value->data);
    return number != nullptr && *number == state;
}

bool TellsOfUnjudgedController(const host::Instance& record) {
    const std::vector<ResultLine> lines = FindResultLines(RecordText(record));
    return std::any_of(lines.begin(), lines.end(), IsUnjudgedController);
}

}  // namespace

host::ObjectPath ClassPath(const std::string& className) { return {kNameSpace, className, {}}; }

host::MethodResult InvokeDiagnostic(host::Host& host) {
    host::MethodResult result = CallRunDiagnostic(host);
    RequireSuccess(result);
    return result;
}

DiagnosticRun RunDiagnostic(host::Host& host) {
    DiagnosticRun run;
    try {
        host::MethodResult result = CallRunDiagnostic(host);
        run.status = result.status;
        RequireSuccess(result);
        run.job = JobOf(host, result);
        run.returnValue = std::move(result.returnValue);
        run.records = Enumerate(host, kRecordClass);
    } catch (const CallError& error) {
        run.problem = error.what();
    }
    return run;
}

Verdict Judge(const DiagnosticRun& run) {
    if (!run.problem.empty()) return Verdict::NoOutcome;
    const auto any = [&](const auto& holds) {
        return std::any_of(run.records.begin(), run.records.end(), holds);
    };
    if (any([](const host::Instance& record) { return HasState(record, kMajorError); }))
        return Verdict::Failed;
    if (run.records.empty() || any([](const host::Instance& record) {
            return HasState(record, kCriticalError) || TellsOfUnjudgedController(record);
        }))
        return Verdict::NotCompleted;
    return Verdict::Passed;
}

std::string VerdictText(Verdict verdict) {
    switch (verdict) {
        case Verdict::Passed:
            return "passed";
        case Verdict::Failed:
            return "failed";
        case Verdict::NotCompleted:
            return "not completed";
        default:
            return "error";
    }
}

int ExitCodeOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::Passed:
            return kSuccess;
        case Verdict::Failed:
            return kTestFailed;
        case Verdict::NotCompleted:
            return kTestNotCompleted;
        default:
            return kCallFailed;
    }
}

std::string TextOf(const std::vector<host::NamedValue>& values, const std::string& name) {
    const host::Value* const value = host::FindValue(values, name);
    const auto* text = value == nullptr ? nullptr : std::get_if<std::string>(&value->data);
    return text == nullptr ? std::string() : *text;
}

std::string RecordText(const host::Instance& record) {
    return TextOf(record.properties, "RecordData");
}

}  // namespace cli
