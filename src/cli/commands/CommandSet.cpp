#include <cli/Errors.h>
#include <cli/HelpFormatter.h>
#include <cli/UsageProblem.h>
#include <cli/commands/CommandSet.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>

namespace cli {

namespace {

constexpr const char* kLimits = "Limits";

std::string Joined(const std::vector<std::string>& words, const std::string& separator) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : separator) + word;
    return text;
}

std::optional<long long> Number(const std::string& text) {
    long long number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && rest == end ? std::optional(number) : std::nullopt;
}

// A whole number; the message goes on with a sentence that begins with the option's name.
CLI::Validator WholeNumber(long long least, long long most) {
    const std::string allowed =
        most == std::numeric_limits<int>::max()
            ? "of at least " + std::to_string(least)
            : "from " + std::to_string(least) + " to " + std::to_string(most);
    return {[least, most, allowed](const std::string& text) {
                const std::optional<long long> number = Number(text);
                return number && *number >= least && *number <= most
                           ? ""
                           : "must be a whole number " + allowed + ", not '" + text + "'";
            },
            ""};
}

}  // namespace

CommandOptions& CommandOptions::Argument(const std::string& name, std::string& value,
                                         const std::string& description) {
    command.add_option(name, value, description)->required();
    return *this;
}

CommandOptions& CommandOptions::Arguments(const std::string& name, std::vector<std::string>& values,
                                          const std::string& description) {
    command.add_option(name, values, description)->required();
    return *this;
}

CommandOptions& CommandOptions::OptionalArgument(const std::string& name, std::string& value,
                                                 const std::string& description) {
    command.add_option(name, value, description);
    return *this;
}

CommandOptions& CommandOptions::Choice(const std::string& name, std::string& value,
                                       std::vector<std::string> choices,
                                       const std::string& description) {
    command.add_option(name, value, description)
        ->required()
        ->type_name(Joined(choices, std::string(1, kChoiceSeparator)))
        ->check([choices](const std::string& word) {
            const bool isOne = std::find(choices.begin(), choices.end(), word) != choices.end();
            return isOne ? "" : "must be " + Joined(choices, " or ") + ", not '" + word + "'";
        });
    return *this;
}

CommandOptions& CommandOptions::Flag(const std::string& name, bool& value,
                                     const std::string& description) {
    command.add_flag(name, value, description)->disable_flag_override();
    return *this;
}

CommandOptions& CommandOptions::Text(const std::string& name, const std::string& form,
                                     std::string& value, const std::string& description) {
    command.add_option(name, value, description)->type_name(form)->capture_default_str();
    return *this;
}

CommandOptions& CommandOptions::Texts(const std::string& name, const std::string& form,
                                      std::vector<std::string>& values,
                                      const std::string& description) {
    command.add_option(name, values, description)->type_name(form)->allow_extra_args(false);
    return *this;
}

CommandOptions& CommandOptions::Count(const std::string& name, int& value, int least,
                                      const std::string& description) {
    command.add_option(name, value, description)
        ->type_name("N")
        ->check(WholeNumber(least, std::numeric_limits<int>::max()));
    return *this;
}

CommandOptions& CommandOptions::Limit(const std::string& name, const std::string& form,
                                      std::size_t& value, std::size_t most,
                                      const std::string& description) {
    command.add_option(name, value, description)
        ->type_name(form)
        ->check(WholeNumber(1, static_cast<long long>(most)))
        ->capture_default_str()
        ->group(kLimits);
    return *this;
}

CommandOptions& CommandOptions::Limit(const std::string& name, std::chrono::seconds& value,
                                      std::chrono::seconds most, const std::string& description) {
    using Seconds = std::chrono::seconds::rep;
    command
        .add_option_function<Seconds>(
            name, [&value](Seconds seconds) { value = std::chrono::seconds(seconds); }, description)
        ->type_name("SECONDS")
        ->check(WholeNumber(1, most.count()))
        ->default_str(std::to_string(value.count()))
        ->group(kLimits);
    return *this;
}

CommandOptions& CommandOptions::Footer(const std::string& text) {
    command.footer(text);
    return *this;
}

CommandOptions CommandSet::Add(const std::string& name, const std::string& description,
                               const Command& command) {
    CLI::App* const added = app.add_subcommand(name, description);
    added->group(kCommandsGroup);
    added->callback([this, command] { chosen = command; });
    return CommandOptions(*added);
}

std::string CommandSet::HelpFor(const std::string& command) const {
    if (command.empty())
        return app.get_formatter()->make_help(&app, app.get_name(), CLI::AppFormatMode::Normal);
    const std::vector<std::string> names = CommandNames(app);
    if (std::find(names.begin(), names.end(), command) == names.end())
        throw UsageError(UnknownCommand(command, names));
    return app.get_subcommand(command)->help(app.get_name());
}

}  // namespace cli
