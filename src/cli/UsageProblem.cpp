#include <cli/Spelling.h>
#include <cli/Text.h>
#include <cli/UsageProblem.h>

#include <CLI/CLI.hpp>

namespace cli {

namespace {

std::string Quoted(const std::string& text) { return "'" + text + "'"; }

// The command on the line; the program itself if there is none.
const CLI::App& NamedIn(const CLI::App& program) {
    const std::vector<CLI::App*> named = program.get_subcommands();
    return named.empty() ? program : *named.front();
}

bool IsProgram(const CLI::App& app) { return app.get_parent() == nullptr; }

std::string CallOf(const CLI::App& app) {
    return IsProgram(app) ? app.get_name() : app.get_parent()->get_name() + " " + app.get_name();
}

std::string SeeHelp(const CLI::App& app) { return "See " + Quoted(CallOf(app) + " --help") + "."; }

std::string DidYouMean(const std::string& nearest) {
    return nearest.empty() ? "" : " Did you mean " + Quoted(nearest) + "?";
}

bool IsOption(const std::string& word) { return word.size() > 1 && word.front() == '-'; }

void AppendOptionNames(const CLI::App& app, std::vector<std::string>& names) {
    for (const CLI::Option* const option : app.get_options())
        for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
}

std::string UnknownOption(const CLI::App& named, const std::string& word) {
    const std::string option = word.substr(0, word.find('='));
    if (named.get_option_no_throw(option) != nullptr)
        return option + " must follow the command: " + CallOf(named) + " " + option + ".";
    std::vector<std::string> known;
    AppendOptionNames(named, known);
    if (!IsProgram(named)) AppendOptionNames(*named.get_parent(), known);
    return "Unknown option " + Quoted(option) + "." + DidYouMean(Nearest(option, known));
}

std::string ExcessWord(const CLI::App& named, const std::string& word) {
    std::vector<std::string> arguments;
    for (const CLI::Option* const option : named.get_options())
        if (option->get_positional()) arguments.push_back(option->get_name());
    return "Unexpected argument " + Quoted(word) + ": " + Quoted(CallOf(named)) + " takes " +
           (arguments.empty() ? "none" : "only " + Listed(arguments)) + ".";
}

// The text for an unexpected argument.
Problem LeftOver(const CLI::App& program, const std::string& word) {
    const CLI::App& named = NamedIn(program);
    if (IsOption(word)) return {UnknownOption(named, word), SeeHelp(named)};
    if (IsProgram(named)) return UnknownCommand(word, CommandNames(program));
    return {ExcessWord(named, word), SeeHelp(named)};
}

Problem Missing(const CLI::App& program, const std::string& argument) {
    const CLI::App& named = NamedIn(program);
    if (IsProgram(named))
        return {"A command is missing. The commands are " + Listed(CommandNames(program)) + ".",
                SeeHelp(named)};
    return {"The argument " + argument + " is missing.", SeeHelp(named)};
}

// The library's messages begin with the name of the option or argument.
std::string SubjectOf(const CLI::Error& error) {
    const std::string message = error.what();
    return message.substr(0, message.find_first_of(": "));
}

const CLI::Option* FindOption(const CLI::App& named, const std::string& name) {
    const CLI::Option* const own = named.get_option_no_throw(name);
    return own != nullptr || IsProgram(named) ? own : named.get_parent()->get_option_no_throw(name);
}

// The text for an option with too few or too many values.
std::string WrongCount(const CLI::App& named, const CLI::Error& error) {
    const std::string name = SubjectOf(error);
    const CLI::Option* const option = FindOption(named, name);
    if (option == nullptr) return "--" + name + " takes no value.";  // named without its dashes
    if (option->count() > 1) return name + " may be given only once.";
    return name + " needs a value: " + name + " " + option->get_type_name() + ".";
}

// The validators' messages continue a sentence that begins with the name.
std::string WrongValue(const CLI::Error& error) {
    std::string message = error.what();
    if (const auto colon = message.find(": "); colon != std::string::npos) message.erase(colon, 1);
    return message + ".";
}

}  // namespace

std::vector<std::string> CommandNames(const CLI::App& program) {
    std::vector<std::string> names;
    for (const CLI::App* const command :
         program.get_subcommands([](const CLI::App* one) { return !one->get_group().empty(); }))
        names.push_back(command->get_name());
    return names;
}

Problem UnknownCommand(const std::string& word, const std::vector<std::string>& commands) {
    const std::string nearest = Nearest(word, commands);
    return {
        "Unknown command " + Quoted(word) + "." +
            (nearest.empty() ? " The commands are " + Listed(commands) + "." : DidYouMean(nearest)),
        "See 'bmci2c --help'."};
}

Problem UsageProblem(const CLI::App& program, const CLI::Error& error) {
    const std::string kind = error.get_name();
    const CLI::App& named = NamedIn(program);
    if (kind == "ArgumentMismatch") return {WrongCount(named, error), SeeHelp(named)};
    if (kind == "ValidationError") return {WrongValue(error), SeeHelp(named)};
    const std::vector<std::string> words = program.remaining(true);
    return words.empty() ? Missing(program, SubjectOf(error)) : LeftOver(program, words.front());
}

}  // namespace cli
