#include <cli/HelpFormatter.h>
#include <cli/completion/Completion.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <sstream>
#include <utility>

namespace cli {

namespace {

bool BeginsLikeOption(const std::string& word) { return word.starts_with('-'); }

bool TakesValue(const CLI::Option* option) {
    return option != nullptr && option->get_items_expected_max() > 0;
}

std::vector<const CLI::App*> Commands(const CLI::App& program) {
    return program.get_subcommands(
        [](const CLI::App* one) { return one->get_group() == kCommandsGroup; });
}

Completion Words(const std::vector<std::string>& words) {
    Completion completion;
    for (const std::string& word : words) completion.candidates.push_back({word, ""});
    return completion;
}

std::vector<std::string> Choices(const std::string& form) {
    std::vector<std::string> choices;
    std::istringstream stream(form);
    for (std::string choice; std::getline(stream, choice, kChoiceSeparator);)
        choices.push_back(choice);
    return choices;
}

// The line up to the word that is being typed.
class Line {
public:
    explicit Line(const CLI::App& itsProgram) : program(itsProgram) {}

    void Add(const std::string& word) {
        if (awaiting != nullptr) {
            awaiting = nullptr;
        } else if (takesOptions && word == "--") {
            takesOptions = false;
        } else if (takesOptions && BeginsLikeOption(word)) {
            const CLI::Option* const option = FindOption(word);  // with its value: none
            if (TakesValue(option)) awaiting = option;
        } else if (command == nullptr) {
            FindCommand(word);
        } else {
            arguments.push_back(word);
        }
    }

    Completion Complete(const std::string& word, const SchemaWords& schema) const {
        if (awaiting != nullptr) return Values(awaiting->get_type_name(), schema);
        if (takesOptions && BeginsLikeOption(word)) return OptionsOrTheirValues(word, schema);
        if (command == nullptr) return isLost ? Completion() : CommandWords();
        const std::vector<const CLI::Option*> all = command->get_options(
            [](const CLI::Option* option) { return option->get_positional(); });
        if (arguments.size() >= all.size()) return {};
        const CLI::Option& argument = *all[arguments.size()];
        const std::string form = argument.get_type_name();
        return Values(IsChoice(form) ? form : argument.get_name(), schema);
    }

private:
    static bool IsChoice(const std::string& form) {
        return form.find(kChoiceSeparator) != std::string::npos;
    }

    void FindCommand(const std::string& word) {
        for (const CLI::App* const one : Commands(program))
            if (one->get_name() == word) command = one;
        isLost = command == nullptr;
    }

    const CLI::Option* FindOption(const std::string& name) const {
        const CLI::Option* const own =
            command == nullptr ? nullptr : command->get_option_no_throw(name);
        return own != nullptr ? own : program.get_option_no_throw(name);
    }

    Completion CommandWords() const {
        Completion completion;
        for (const CLI::App* const one : Commands(program))
            completion.candidates.push_back({one->get_name(), one->get_description()});
        return completion;
    }

    void AppendOptions(const CLI::App& app, Completion& completion) const {
        for (const CLI::Option* const option : app.get_options())
            for (const std::string& name : option->get_lnames())
                if (FindOption("--" + name) == option)
                    completion.candidates.push_back({"--" + name, option->get_description()});
    }

    Completion OptionsOrTheirValues(const std::string& word, const SchemaWords& schema) const {
        Completion completion;
        const auto equals = word.find('=');
        if (equals == std::string::npos) {
            if (command != nullptr) AppendOptions(*command, completion);
            AppendOptions(program, completion);
            return completion;
        }
        const CLI::Option* const option = FindOption(word.substr(0, equals));
        if (TakesValue(option)) completion = Values(option->get_type_name(), schema);
        for (Candidate& one : completion.candidates) one.word.insert(0, word.substr(0, equals + 1));
        return completion;
    }

    // The candidates for a value that the help calls `form`.
    Completion Values(const std::string& form, const SchemaWords& schema) const {
        if (IsChoice(form)) return Words(Choices(form));
        if (form == "FILE" || form == "PROFILE") return {Completion::Kind::Files, {}};
        if (form == "DIR") return {Completion::Kind::Folders, {}};
        if (form == "COMMAND") return CommandWords();
        if (form == "CLASS") return Words(schema.Classes());
        if (form == "METHOD") return Words(schema.Methods(arguments.front()));
        if (form == "PROPERTY" && !arguments.empty())
            return Words(schema.Properties(arguments.front()));
        return {};
    }

    const CLI::App& program;
    const CLI::App* command = nullptr;
    bool isLost = false;  // after an unknown command
    bool takesOptions = true;
    const CLI::Option* awaiting = nullptr;  // the option whose value comes next
    std::vector<std::string> arguments;
};

}  // namespace

Completion Complete(const CLI::App& program, const std::vector<std::string>& words,
                    const SchemaWords& schema) {
    if (words.empty()) return {};
    Line line(program);
    std::for_each(words.begin(), words.end() - 1, [&](const std::string& word) { line.Add(word); });
    return line.Complete(words.back(), schema);
}

std::string CompletionText(const Completion& completion) {
    if (completion.kind == Completion::Kind::Files) return ":files\n";
    if (completion.kind == Completion::Kind::Folders) return ":folders\n";
    std::string text;
    for (const Candidate& one : completion.candidates)
        text += one.word + "\t" + one.description + "\n";
    return text;
}

}  // namespace cli
