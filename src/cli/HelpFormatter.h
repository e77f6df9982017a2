// The format of the help. For sources that include CLI11.
#pragma once

#include <CLI/CLI.hpp>
#include <cstddef>
#include <string>

namespace cli {

// The group of the commands that the help lists.
inline constexpr const char* kCommandsGroup = "Commands";

// Between the words of a value that is one of several.
inline constexpr char kChoiceSeparator = '|';

// Fits into the given number of columns: names stand in a column on the left when there is room for
// them, and what does not fit is broken at blanks.
class HelpFormatter : public CLI::Formatter {
public:
    explicit HelpFormatter(std::size_t columns);

    std::string make_description(const CLI::App* app) const override;
    std::string make_usage(const CLI::App* app, std::string name) const override;
    std::string make_footer(const CLI::App* app) const override;
    std::string make_help(const CLI::App* app, std::string name,
                          CLI::AppFormatMode mode) const override;
    std::string make_subcommand(const CLI::App* sub) const override;
    std::string make_option(const CLI::Option* option, bool isPositional) const override;
    std::string make_option_opts(const CLI::Option* option) const override;
    std::string make_option_desc(const CLI::Option* option) const override;

private:
    std::string Row(const std::string& name, const std::string& description) const;

    std::size_t width;
    std::size_t nameWidth;
};

}  // namespace cli
