#include <cli/commands/CommandSet.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <limits>

namespace cli {

namespace {

constexpr const char* kLimits = "Limits";

std::string OneOf(const std::vector<std::string>& choices) {
    std::string text;
    for (const std::string& choice : choices) text += (text.empty() ? "" : " or ") + choice;
    return text;
}

}  // namespace

CommandOptions& CommandOptions::Argument(const std::string& name, std::string& value,
                                         const std::string& description) {
    command.add_option(name, value, description)->required();
    return *this;
}

CommandOptions& CommandOptions::Choice(const std::string& name, std::string& value,
                                       std::vector<std::string> choices,
                                       const std::string& description) {
    command.add_option(name, value, description)
        ->required()
        ->check([choices = std::move(choices)](const std::string& word) {
            const bool isOne = std::find(choices.begin(), choices.end(), word) != choices.end();
            return isOne ? "" : "it must be " + OneOf(choices);
        });
    return *this;
}

CommandOptions& CommandOptions::Flag(const std::string& name, bool& value,
                                     const std::string& description) {
    command.add_flag(name, value, description);
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
        ->check(CLI::Range(least, std::numeric_limits<int>::max()));
    return *this;
}

CommandOptions& CommandOptions::Limit(const std::string& name, const std::string& form,
                                      std::size_t& value, std::size_t most,
                                      const std::string& description) {
    command.add_option(name, value, description)
        ->type_name(form)
        ->check(CLI::Range(std::size_t{1}, most))
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
        ->check(CLI::Range(Seconds{1}, most.count()))
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
    added->callback([this, command] { chosen = command; });
    return CommandOptions(*added);
}

}  // namespace cli
