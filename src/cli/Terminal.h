// Properties of standard output: colours and width.
#pragma once

#include <cstddef>
#include <string>

namespace cli {

struct Terminal {
    bool hasColour = false;
    std::size_t width = 80;  // columns

    std::string Red(const std::string& text) const { return Coloured("1;31", text); }
    std::string Yellow(const std::string& text) const { return Coloured("1;33", text); }
    std::string Green(const std::string& text) const { return Coloured("1;32", text); }
    std::string Bold(const std::string& text) const { return Coloured("1", text); }

private:
    std::string Coloured(const char* code, const std::string& text) const {
        return hasColour ? "\033[" + std::string(code) + "m" + text + "\033[0m" : text;
    }
};

// Auto: only on a terminal, and not where NO_COLOR is set or the terminal is "dumb".
enum class Colour { Auto, Always, Never };

// As wide as the terminal, within reason; 80 columns where there is none.
Terminal StandardOutput(Colour colour = Colour::Auto);

}  // namespace cli
