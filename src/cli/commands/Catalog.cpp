#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/catalog/CatalogCheck.h>
#include <cli/catalog/CatalogOutput.h>
#include <cli/commands/Commands.h>
#include <platform/settings/FileText.h>

#include <iostream>
#include <memory>
#include <system_error>

namespace cli {

namespace {

using Severity = CatalogReport::Severity;

struct CatalogOptions {
    std::string action;
    std::vector<std::string> files;
    std::string machine;
    int message = -1;
    CatalogUse use;
    bool asJson = false;
};

// The function's result for the file; an unreadable file is wrong usage.
template <class Function>
auto OfFile(const std::string& path, Function function) {
    try {
        return function(path);
    } catch (const std::system_error& error) {
        throw UsageError(path + ": The file cannot be read: " +
                         platform::ReasonText(error.code().value()) + ".");
    }
}

std::vector<MachineMessages> MachinesOf(const std::string& file, const CatalogOptions& options) {
    auto machines =
        OfFile(file, [&](const std::string& path) { return CatalogMachines(path, options.use); });
    if (!options.machine.empty())
        std::erase_if(machines, [&](const auto& one) { return one.type != options.machine; });
    for (MachineMessages& machine : machines)
        if (options.message >= 0)
            std::erase_if(machine.messages,
                          [&](const auto& one) { return one.number != options.message; });
    return machines;
}

void RequireFiles(const CatalogOptions& options, std::size_t count) {
    if (options.files.size() != count)
        throw UsageError("catalog " + options.action + " needs " +
                         (count == 1 ? "one file." : "two files, the old one and the new one."));
}

int CheckFiles(const CatalogOptions& options) {
    std::vector<CheckedCatalog> catalogs;
    for (const std::string& file : options.files)
        catalogs.push_back({file, OfFile(file, CheckCatalogFile)});
    std::cout << (options.asJson ? JsonText(ReportsJson(catalogs)) : ReportsText(catalogs));
    if (CountOf(catalogs, Severity::Error) != 0) return kCatalogErrors;
    return CountOf(catalogs, Severity::Warning) != 0 ? kCatalogWarnings : kSuccess;
}

int Show(const CatalogOptions& options) {
    RequireFiles(options, 1);
    const auto machines = MachinesOf(options.files[0], options);
    if (machines.empty() && !options.machine.empty())
        throw CommandError({options.files[0] + " has no machine '" + options.machine + "'.", ""});
    std::cout << (options.asJson ? JsonText(MachinesJson(machines)) : MachinesText(machines));
    return kSuccess;
}

int Diff(const CatalogOptions& options) {
    RequireFiles(options, 2);
    const auto changes =
        CatalogDiff(MachinesOf(options.files[0], options), MachinesOf(options.files[1], options));
    std::cout << (options.asJson ? JsonText(ChangesJson(changes)) : ChangesText(changes));
    return changes.empty() ? kSuccess : kCatalogsDiffer;
}

int CarryOut(const CatalogOptions& options) {
    if (options.action == "check") return CheckFiles(options);
    return options.action == "show" ? Show(options) : Diff(options);
}

}  // namespace

void AddCatalog(CommandSet& commands) {
    const auto options = std::make_shared<CatalogOptions>();
    commands
        .Add("catalog", "Check, show or compare message catalogs",
             Command([options](const Session&) { return CarryOut(*options); },
                     Command::BrokenSettings::AreShown))
        .Choice(
            "ACTION", options->action, {"check", "show", "diff"},
            "check prints every mistake, show every text as the test says it, diff what changed "
            "for each machine")
        .Arguments("FILE", options->files,
                   "A message catalog; for diff the old one and the new one")
        .Text("--machine", "TYPE", options->machine, "show, diff: only this machine")
        .Count("--message", options->message, 0, "show, diff: only this message")
        .Flag("--oem", options->use.isOem, "show, diff: the recommendations of an OEM build")
        .Flag("--oxc", options->use.isOxc, "show, diff: the texts of OXC controllers")
        .Flag("--json", options->asJson, "Print a JSON object")
        .Footer(
            "Exit codes of check: 0 no mistake, 1 warnings only, 2 errors. Of diff: 0 no change, 1 "
            "changes.");
}

}  // namespace cli
