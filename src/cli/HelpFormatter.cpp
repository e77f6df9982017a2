#include <cli/HelpFormatter.h>
#include <cli/Text.h>

#include <algorithm>
#include <utility>

namespace cli {

namespace {

constexpr std::size_t kHelpIndent = 2;
constexpr std::size_t kWidestNames = 26;
// Descriptions get the greater part of a narrow terminal.
constexpr std::size_t kNamesShare = 3;

}  // namespace

HelpFormatter::HelpFormatter(std::size_t columns)
    : width(columns), nameWidth(std::min(kWidestNames, columns / kNamesShare)) {
    label("SUBCOMMAND", "COMMAND");
    label("Positionals", "Arguments");
}

std::string HelpFormatter::make_description(const CLI::App* app) const {
    return Wrap(app->get_description() + ".", width, 0);
}

std::string HelpFormatter::make_usage(const CLI::App* app, std::string name) const {
    return Wrap(Formatter::make_usage(app, std::move(name)), width, 0, kHelpIndent);
}

std::string HelpFormatter::make_footer(const CLI::App* app) const {
    return Wrap(app->get_footer(), width, 0);
}

std::string HelpFormatter::make_help(const CLI::App* app, std::string name,
                                     CLI::AppFormatMode mode) const {
    return CLI::detail::find_and_replace(Formatter::make_help(app, std::move(name), mode), "\n\n\n",
                                         "\n\n");
}

std::string HelpFormatter::make_subcommand(const CLI::App* sub) const {
    return Row(sub->get_name(), sub->get_description());
}

std::string HelpFormatter::make_option(const CLI::Option* option, bool isPositional) const {
    return Row(
        make_option_name(option, isPositional) + (isPositional ? "" : make_option_opts(option)),
        make_option_desc(option));
}

std::string HelpFormatter::make_option_opts(const CLI::Option* option) const {
    return option->get_items_expected_max() == 0 ? "" : " " + option->get_type_name();
}

std::string HelpFormatter::make_option_desc(const CLI::Option* option) const {
    const std::string byDefault = option->get_default_str();
    return option->get_description() + (byDefault.empty() ? "" : " [" + byDefault + "]");
}

std::string HelpFormatter::Row(const std::string& name, const std::string& description) const {
    const std::string row(kHelpIndent, ' ');
    if (kHelpIndent + name.size() + 2 > nameWidth)
        return row + name + "\n" + Wrap(description, width, nameWidth);
    return row + name + Wrap(description, width, nameWidth).substr(kHelpIndent + name.size());
}

}  // namespace cli
