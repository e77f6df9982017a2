#include <cli/ErrorOutput.h>
#include <cli/Session.h>
#include <platform/settings/Environment.h>

#include <cstdlib>

namespace cli {

namespace {

using platform::Origin;

// The options as variables, which say the same.
platform::Variables VariablesOf(const GlobalOptions& options) {
    platform::Variables variables;
    const auto add = [&](const char* name, const std::string& path) {
        if (!path.empty()) variables[name] = std::filesystem::absolute(path);
    };
    add("BMCI2C_CONFIG", options.config);
    add("BMCI2C_ROOT", options.root);
    add("BMCI2C_SIMULATE", options.profile);
    return variables;
}

}  // namespace

Session OpenSession(const GlobalOptions& options) {
    Session session;
    session.options = options;
    session.inheritedProfile = platform::EnvironmentText("BMCI2C_SIMULATE").has_value();
    session.variables = VariablesOf(options);
    session.executable = Executable();
    session.files = FindFiles(session.executable.parent_path(), options.module);
    session.settings = platform::ReadSettingsOrProblem(session.variables);

    // Errors must stay visible: a log chosen by the command could hide them.
    session.choseLog =
        session.settings.problem.empty() && session.settings.log.origin == Origin::Default;
    session.choseLogLevel = session.choseLog && session.settings.logLevel.origin == Origin::Default;
    if (session.choseLog) session.variables["BMCI2C_LOG"] = "stderr";
    if (session.choseLogLevel) session.variables["BMCI2C_LOG_LEVEL"] = "0";
    session.settings = platform::ReadSettingsOrProblem(session.variables);
    return session;
}

std::unique_ptr<host::Host> LoadHost(const Session& session,
                                     std::function<void(const std::string&)> print) {
    for (const auto& [name, value] : session.variables) ::setenv(name.c_str(), value.c_str(), 1);
    // A module in another place has its own default, but must read the same catalog as this
    // program.
    if (session.settings.root.origin == Origin::Default)
        ::setenv("BMCI2C_ROOT", session.settings.root.value.c_str(), 1);
    const auto printErrors = [print = std::move(print)](const host::Message& message) {
        if (message.severity == CMPI_SEV_ERROR) print(message.component + ": " + message.text);
    };
    return std::make_unique<host::Host>(session.files, printErrors);
}

}  // namespace cli
