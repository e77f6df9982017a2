#include <cli/Terminal.h>
#include <platform/settings/Environment.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>

namespace cli {

namespace {

constexpr std::size_t kNarrowest = 40;
constexpr std::size_t kWidest = 100;  // longer lines are hard to read

bool IsTerminal() { return ::isatty(STDOUT_FILENO) != 0; }

bool HasColour(Colour colour) {
    if (colour != Colour::Auto) return colour == Colour::Always;
    return IsTerminal() && !platform::EnvironmentText("NO_COLOR") &&
           platform::EnvironmentText("TERM") != "dumb";
}

}  // namespace

Terminal StandardOutput(Colour colour) {
    Terminal terminal;
    terminal.hasColour = HasColour(colour);
    winsize size{};
    if (IsTerminal() && ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        terminal.width = std::clamp<std::size_t>(size.ws_col, kNarrowest, kWidest);
    return terminal;
}

}  // namespace cli
