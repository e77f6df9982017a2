#include <cli/Terminal.h>
#include <platform/settings/Environment.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>

namespace cli {

namespace {

constexpr std::size_t kNarrowest = 60;
constexpr std::size_t kWidest = 100;  // longer lines are hard to read

}  // namespace

Terminal StandardOutput() {
    Terminal terminal;
    if (::isatty(STDOUT_FILENO) == 0) return terminal;
    terminal.hasColour =
        !platform::EnvironmentText("NO_COLOR") && platform::EnvironmentText("TERM") != "dumb";
    winsize size{};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        terminal.width = std::clamp<std::size_t>(size.ws_col, kNarrowest, kWidest);
    return terminal;
}

}  // namespace cli
