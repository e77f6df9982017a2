#include <cli/ShellWord.h>
#include <cli/registration/ServerTools.h>
#include <unistd.h>

#include <sstream>
#include <utility>

namespace cli {

namespace {

std::string CommandLine(const CommandWords& command) {
    std::string line;
    for (const std::string& word : command) line += (line.empty() ? "" : " ") + ShellWord(word);
    return line;
}

std::string WithoutLastBreak(std::string text) {
    if (text.ends_with('\n')) text.pop_back();
    return text;
}

std::string RunRequired(const CommandWords& command) {
    const ProgramResult result = RunProgram(command);
    if (result.exitCode == 0) return result.output;
    throw RegistrationError(
        {"'" + CommandLine(command) + "' failed with exit code " + std::to_string(result.exitCode) +
             ". It printed:\n" +
             (result.output.empty() ? "(nothing)" : WithoutLastBreak(result.output)),
         ""});
}

bool HasLine(const std::string& text, const std::string& line) {
    std::istringstream stream(text);
    for (std::string found; std::getline(stream, found);)
        if (found == line) return true;
    return false;
}

}  // namespace

std::string StepText(const Step& step) { return CommandLine(step.command); }

ServerTools::ServerTools(const ServerPackage& package, bool isDryRun,
                         std::function<void(const Step&)> announceStep)
    : dryRun(isDryRun), announce(std::move(announceStep)) {
    if (dryRun) return;
    for (const std::string& program : package.programs)
        if (FindProgram(program).empty())
            throw RegistrationError(
                {"The program '" + program + "' of " + package.server + " is in no folder of PATH.",
                 "Install the package " + package.package +
                     ", or add the program's folder to PATH."});
    if (::geteuid() != 0)
        throw RegistrationError({"Only root may change what " + package.server + " provides.",
                                 "Use sudo, or --dry-run to see what would be done."});
}

void ServerTools::Run(const CommandWords& command) {
    announce({command, condition});
    if (!dryRun) RunRequired(command);
}

void ServerTools::Try(const CommandWords& command) {
    announce({command, condition});
    if (!dryRun) RunProgram(command);
}

bool ServerTools::Lists(const CommandWords& command, const std::string& line, bool expected) {
    announce({command, condition});
    return dryRun ? expected : HasLine(RunProgram(command).output, line);
}

void ServerTools::WhenPrinted(const CommandWords& command, const std::string& line,
                              const std::function<void()>& rest) {
    announce({command, condition});
    if (!dryRun && !HasLine(RunRequired(command), line)) return;
    if (dryRun) condition = line;
    rest();
    condition.clear();
}

}  // namespace cli
