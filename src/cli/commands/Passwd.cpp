#include <cimxml/access/PasswordFile.h>
#include <cli/Errors.h>
#include <cli/ExitCodes.h>
#include <cli/commands/Commands.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <iostream>
#include <memory>
#include <string>

namespace cli {

namespace {

// Disables the terminal's echo during its lifetime. Signals that would end the program are blocked
// until the echo is restored.
class WithoutEcho {
public:
    WithoutEcho() {
        sigset_t ending{};
        for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP})
            sigaddset(&ending, signal);
        ::sigprocmask(SIG_BLOCK, &ending, &signalsBefore);
        ::tcgetattr(STDIN_FILENO, &before);
        termios silent = before;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }
    ~WithoutEcho() {
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &before);
        ::sigprocmask(SIG_SETMASK, &signalsBefore, nullptr);
    }
    WithoutEcho(const WithoutEcho&) = delete;
    WithoutEcho& operator=(const WithoutEcho&) = delete;

private:
    termios before{};
    sigset_t signalsBefore{};
};

std::string ReadLine() {
    std::string line;
    if (!std::getline(std::cin, line)) throw UsageError("Standard input holds no password.");
    return line;
}

std::string Ask(const std::string& question) {
    const WithoutEcho silent;  // before the prompt, so that typing ahead is hidden, too
    std::cerr << question << ": " << std::flush;
    std::string answer = ReadLine();
    std::cerr << '\n';
    return answer;
}

std::string ReadPassword(const std::string& user) {
    if (!::isatty(STDIN_FILENO)) return ReadLine();
    std::string password = Ask("New password of " + user);
    if (Ask("Repeat password") != password) throw UsageError("The two passwords differ.");
    return password;
}

int Passwd(const std::string& file, const std::string& user) {
    cimxml::SetPassword(file, user, ReadPassword(user));
    return kSuccess;
}

}  // namespace

void AddPasswd(CommandSet& commands) {
    const auto file = std::make_shared<std::string>();
    const auto user = std::make_shared<std::string>();
    commands
        .Add("passwd", "Set a user's password for bmci2c serve",
             [file, user](const Session&) { return Passwd(*file, *user); })
        .Argument("FILE", *file, "The password file; created if missing")
        .Argument("USER", *user, "The user's name")
        .Footer(
            "Asks for the password on the terminal; otherwise the first line of standard input is "
            "the password.");
}

}  // namespace cli
