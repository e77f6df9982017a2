#include <cli/registration/ExternalProgram.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <system_error>

namespace cli {

namespace {

constexpr int kSignalled = 128;

void Require(int error, const std::string& what) {
    if (error != 0) throw std::system_error(error, std::generic_category(), what);
}

// Both ends of a pipe that no other program inherits.
class Pipe {
public:
    Pipe() { Require(::pipe2(ends.data(), O_CLOEXEC) == 0 ? 0 : errno, "A pipe cannot be made"); }
    ~Pipe() {
        ::close(ends[0]);
        CloseWriteEnd();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int WriteEnd() const { return ends[1]; }

    void CloseWriteEnd() {
        if (ends[1] >= 0) ::close(ends[1]);
        ends[1] = -1;
    }

    // Until the last program that holds the other end has closed it.
    std::string ReadAll() const {
        std::string text;
        std::array<char, 4096> piece;
        for (;;) {
            const ssize_t length = ::read(ends[0], piece.data(), piece.size());
            if (length < 0 && errno == EINTR) continue;
            if (length <= 0) return text;
            text.append(piece.data(), static_cast<std::size_t>(length));
        }
    }

private:
    std::array<int, 2> ends = {-1, -1};
};

// Where the program's standard streams go.
class Streams {
public:
    explicit Streams(int output) {
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);
    }
    ~Streams() { ::posix_spawn_file_actions_destroy(&actions); }
    Streams(const Streams&) = delete;
    Streams& operator=(const Streams&) = delete;

    const posix_spawn_file_actions_t* Actions() const { return &actions; }

private:
    posix_spawn_file_actions_t actions;
};

std::vector<char*> Pointers(CommandWords& words) {
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return pointers;
}

int ExitCodeOf(pid_t process) {
    int status = 0;
    while (::waitpid(process, &status, 0) < 0)
        if (errno != EINTR) Require(errno, "The program's end cannot be waited for");
    return WIFEXITED(status) ? WEXITSTATUS(status) : kSignalled + WTERMSIG(status);
}

}  // namespace

std::string FindProgram(const std::string& name) {
    const char* const path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "" : path);
    for (std::string folder; std::getline(folders, folder, ':');) {
        const std::filesystem::path file = std::filesystem::path(folder) / name;
        std::error_code ignored;
        if (::access(file.c_str(), X_OK) == 0 && std::filesystem::is_regular_file(file, ignored))
            return file;
    }
    return {};
}

ProgramResult RunProgram(const CommandWords& command) {
    CommandWords words = command;
    Pipe pipe;
    const Streams streams(pipe.WriteEnd());
    pid_t process = 0;
    Require(::posix_spawnp(&process, words.front().c_str(), streams.Actions(), nullptr,
                           Pointers(words).data(), environ),
            "The program '" + command.front() + "' cannot be started");
    pipe.CloseWriteEnd();
    ProgramResult result;
    result.output = pipe.ReadAll();
    result.exitCode = ExitCodeOf(process);
    return result;
}

}  // namespace cli
