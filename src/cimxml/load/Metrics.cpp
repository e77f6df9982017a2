#include <cimxml/load/Metrics.h>

namespace cimxml {

namespace {

class Page {
public:
    void Family(const std::string& name, const char* type, const char* help) {
        text +=
            "# TYPE bmci2c_" + name + " " + type + "\n# HELP bmci2c_" + name + " " + help + "\n";
    }

    void Sample(const std::string& name, std::uint64_t value) {
        text += "bmci2c_" + name + " " + std::to_string(value) + "\n";
    }

    void Gauge(const std::string& name, std::uint64_t value, const char* help) {
        Family(name, "gauge", help);
        Sample(name, value);
    }

    void Counter(const std::string& name, std::uint64_t value, const char* help) {
        Family(name, "counter", help);
        Sample(name + "_total", value);
    }

    std::string End() { return text + "# EOF\n"; }

private:
    std::string text;
};

}  // namespace

void Metrics::CountRequest(int status) {
    if (status >= 0 && static_cast<std::size_t>(status) < requests.size())
        ++requests[static_cast<std::size_t>(status)];
}

std::string Metrics::Text(const std::string& version, std::uint64_t logLinesLost) const {
    Page page;
    page.Family("build", "info", "The server's version.");
    page.Sample("build_info{version=\"" + version + "\"}", 1);
    page.Gauge("connections", connections, "Open connections.");
    page.Counter("connections_accepted", connectionsAccepted, "Connections that were served.");
    page.Counter("connections_refused", connectionsRefused, "Connections beyond the limits.");
    page.Counter("connections_displaced", connectionsDisplaced,
                 "Connections closed without a request, to make room for newer ones.");
    page.Family("requests", "counter", "Answered requests by HTTP status.");
    for (std::size_t status = 0; status < requests.size(); ++status)
        if (requests[status] > 0)
            page.Sample("requests_total{status=\"" + std::to_string(status) + "\"}",
                        requests[status]);
    page.Counter("wrong_passwords", wrongPasswords, "Requests with a wrong user or password.");
    page.Counter("log_lines_lost", logLinesLost,
                 "Log lines lost because standard error was not read in time.");
    page.Counter("runs", runs, "Calls of RunDiagnostic that were carried out.");
    page.Gauge("runs_under_way", runsUnderWay, "Calls of RunDiagnostic under way.");
    page.Gauge("runs_waiting", runsWaiting, "Calls of RunDiagnostic that wait for their turn.");
    page.Counter("runs_refused", runsRefused,
                 "Calls of RunDiagnostic that timed out waiting for their turn.");
    return page.End();
}

}  // namespace cimxml
