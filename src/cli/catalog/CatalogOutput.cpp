#include <cli/Printable.h>
#include <cli/Text.h>
#include <cli/catalog/CatalogOutput.h>

#include <algorithm>
#include <sstream>

namespace cli {

namespace {

using Severity = CatalogReport::Severity;

const char* NameOf(Severity severity) { return severity == Severity::Error ? "error" : "warning"; }

Json ReportJson(const CatalogReport& report) {
    return {{"line", report.place.line},
            {"column", report.place.column},
            {"severity", NameOf(report.severity)},
            {"text", report.text}};
}

Json MessageJson(const CatalogMessage& message) {
    return {{"number", message.number},
            {"line", message.line},
            {"text_source", message.textSource},
            {"recommendations", message.recommendations},
            {"recommendation_source", message.recommendationSource}};
}

std::string Sources(const CatalogMessage& message) {
    std::string sources = "text: " + message.textSource;
    if (!message.recommendationSource.empty())
        sources += "; recommendations: " + message.recommendationSource;
    return "(" + sources + ")";
}

// Every line of the text behind a mark.
std::string Marked(const std::string& mark, const std::string& text) {
    std::string marked;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) marked += mark + Printable(line) + "\n";
    return marked;
}

Json Format(Json object) {
    Json versioned = {{"format_version", kFormatVersion}};
    versioned.update(object);
    return versioned;
}

}  // namespace

std::size_t CountOf(const std::vector<CheckedCatalog>& catalogs, Severity severity) {
    std::size_t count = 0;
    for (const CheckedCatalog& catalog : catalogs)
        count += static_cast<std::size_t>(
            std::ranges::count(catalog.reports, severity, &CatalogReport::severity));
    return count;
}

std::string ReportsText(const std::vector<CheckedCatalog>& catalogs) {
    std::string text;
    for (const auto& [path, reports] : catalogs)
        for (const CatalogReport& report : reports)
            text += PrintableLine(path) + ":" + std::to_string(report.place.line) + ":" +
                    std::to_string(report.place.column) + ": " + NameOf(report.severity) + ": " +
                    PrintableLine(report.text) + "\n";
    return text + Counted(CountOf(catalogs, Severity::Error), "error", "errors") + ", " +
           Counted(CountOf(catalogs, Severity::Warning), "warning", "warnings") + "\n";
}

Json ReportsJson(const std::vector<CheckedCatalog>& catalogs) {
    Json files = Json::array();
    for (const auto& [path, reports] : catalogs) {
        Json list = Json::array();
        for (const CatalogReport& report : reports) list.push_back(ReportJson(report));
        files.push_back({{"file", path}, {"reports", std::move(list)}});
    }
    return Format({{"files", std::move(files)},
                   {"errors", CountOf(catalogs, Severity::Error)},
                   {"warnings", CountOf(catalogs, Severity::Warning)}});
}

std::string MachinesText(const std::vector<MachineMessages>& machines) {
    std::string text;
    for (const MachineMessages& machine : machines) {
        text += (text.empty() ? "" : "\n") + ("Machine " + PrintableLine(machine.type)) + "\n";
        for (const CatalogMessage& message : machine.messages)
            text += "\n" + Printable(RecordText(message)) + "\n" + PrintableLine(Sources(message)) +
                    "\n";
    }
    return text;
}

Json MachinesJson(const std::vector<MachineMessages>& machines) {
    Json array = Json::array();
    for (const MachineMessages& machine : machines) {
        Json messages = Json::array();
        for (const CatalogMessage& message : machine.messages)
            messages.push_back(MessageJson(message));
        array.push_back({{"type", machine.type}, {"messages", std::move(messages)}});
    }
    return Format({{"machines", std::move(array)}});
}

std::string ChangesText(const std::vector<CatalogChange>& changes) {
    std::string text;
    for (const CatalogChange& change : changes)
        text += "Machine " + PrintableLine(change.machine) + ": " + change.what + "\n" +
                Marked("- ", change.before) + Marked("+ ", change.after);
    return text;
}

Json ChangesJson(const std::vector<CatalogChange>& changes) {
    Json array = Json::array();
    for (const CatalogChange& change : changes)
        array.push_back({{"machine", change.machine},
                         {"what", change.what},
                         {"before", change.before},
                         {"after", change.after}});
    return Format({{"changes", std::move(array)}});
}

}  // namespace cli
