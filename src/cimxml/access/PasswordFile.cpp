#include <cimxml/access/PasswordFile.h>
#include <cimxml/http/Descriptor.h>
#include <crypt.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <system_error>

namespace cimxml {

namespace {

[[noreturn]] void Fail(const std::string& path, const std::string& what) {
    throw SetupError("The password file '" + path + "' " + what + ".");
}

[[noreturn]] void FailWithErrno(const std::string& path, const std::string& what) {
    Fail(path, what + ": " + std::generic_category().message(errno));
}

void CheckPermissions(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) FailWithErrno(path, "cannot be read");
    if (status.st_mode & S_IRWXO)
        Fail(path, "is open to every user of this machine; say 'chmod o= " + path + "'");
}

std::vector<std::string> ReadLines(const std::string& path) {
    std::ifstream file(path);
    if (!file) FailWithErrno(path, "cannot be read");
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    if (file.bad()) FailWithErrno(path, "cannot be read");
    return lines;
}

// True when crypt() could have made it. Of what else looks like the begin of a hash, such as a
// password in clear, crypt() makes a longer text.
bool IsHash(const std::string& text) {
    return !text.empty() && HashLike("", text).size() == text.size();
}

bool Exists(const std::string& path) { return ::access(path.c_str(), F_OK) == 0; }

// The user of a line; nothing when the line means nothing.
std::optional<User> ParseLine(const std::string& line) {
    if (line.empty() || line.front() == '#') return std::nullopt;
    const auto colon = std::min(line.find(':'), line.size());
    return User{line.substr(0, colon), line.substr(std::min(colon + 1, line.size()))};
}

void CheckUserName(const std::string& name) {
    const bool isPlain = std::all_of(name.begin(), name.end(), [](char letter) {
        return letter != ':' && static_cast<unsigned char>(letter) >= ' ' && letter != '\x7F';
    });
    if (name.empty() || name.front() == '#' || !isPlain)
        throw SetupError("The user name '" + name +
                         "' cannot be used: it must not be empty, begin with '#' or hold "
                         "colons or control characters.");
    if (name.size() > kMostUserName)
        throw SetupError("The user name is longer than " + std::to_string(kMostUserName) +
                         " bytes.");
}

void CheckPassword(const std::string& password) {
    constexpr std::size_t kMost = CRYPT_MAX_PASSPHRASE_SIZE - 1;
    if (password.empty()) throw SetupError("The password is empty.");
    if (password.size() > kMost)
        throw SetupError("The password is longer than " + std::to_string(kMost) + " bytes.");
    // crypt() would end it there, and anybody could come in with what stands before.
    if (password.find('\0') != std::string::npos)
        throw SetupError("The password holds a NUL character.");
}

std::string NewHash(const std::string& password) {
    char settings[CRYPT_GENSALT_OUTPUT_SIZE] = {};
    // The library's best method, its usual cost, and a salt of its own making.
    const char* made = ::crypt_gensalt_rn(nullptr, 0, nullptr, 0, settings, sizeof settings);
    std::string hash = made ? HashLike(password, settings) : "";
    if (hash.empty()) throw SetupError("The password cannot be hashed.");
    return hash;
}

void WriteAll(int file, const std::string& text, const std::string& path) {
    std::string_view rest = text;
    while (!rest.empty()) {
        const ssize_t count = ::write(file, rest.data(), rest.size());
        if (count < 0 && errno != EINTR) FailWithErrno(path, "cannot be written");
        rest.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
}

// A file that disappears unless it is given its final name.
class NewFile {
public:
    explicit NewFile(const std::string& finalPath)
        : path(finalPath), name(finalPath + ".XXXXXX"), file(::mkostemp(name.data(), O_CLOEXEC)) {
        if (!file.IsOpen()) FailWithErrno(path, "cannot be written");
    }
    ~NewFile() {
        if (!name.empty()) ::unlink(name.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    // Takes the owner and permissions of the file that is replaced.
    void KeepAccess() const {
        struct stat status {};
        if (::stat(path.c_str(), &status) != 0) return;
        if (::fchown(file.Get(), status.st_uid, status.st_gid) != 0 ||
            ::fchmod(file.Get(), status.st_mode & (S_IRWXU | S_IRWXG)) != 0)
            FailWithErrno(path, "cannot be written");
    }

    void Fill(const std::string& text) const {
        WriteAll(file.Get(), text, path);
        if (::fsync(file.Get()) != 0) FailWithErrno(path, "cannot be written");
    }

    void TakeFinalName() {
        if (::rename(name.c_str(), path.c_str()) != 0) FailWithErrno(path, "cannot be written");
        name.clear();
    }

private:
    const std::string path;
    std::string name;
    const Descriptor file;
};

}  // namespace

std::string HashLike(const std::string& password, const std::string& settings) {
    const auto data = std::make_unique<crypt_data>();
    const char* const hash =
        ::crypt_rn(password.c_str(), settings.c_str(), data.get(), sizeof *data);
    return hash && *hash != '*' ? hash : "";
}

std::vector<User> ReadPasswordFile(const std::string& path) {
    CheckPermissions(path);
    std::vector<User> users;
    std::size_t number = 0;
    for (const std::string& line : ReadLines(path)) {
        ++number;
        const auto user = ParseLine(line);
        if (!user) continue;
        if (user->name.empty() || !IsHash(user->hash))
            Fail(path, "has no user and hash in line " + std::to_string(number) +
                           "; write it with 'bmci2c passwd'");
        users.push_back(*user);
    }
    if (users.empty()) Fail(path, "names no user; add one with 'bmci2c passwd'");
    return users;
}

void SetPassword(const std::string& path, const std::string& user, const std::string& password) {
    CheckUserName(user);
    CheckPassword(password);
    const std::string entry = user + ":" + NewHash(password);
    std::vector<std::string> lines;
    if (Exists(path)) lines = ReadLines(path);
    const auto old = std::find_if(lines.begin(), lines.end(), [&](const std::string& line) {
        const auto present = ParseLine(line);
        return present && present->name == user;
    });
    if (old == lines.end())
        lines.push_back(entry);
    else
        *old = entry;
    std::ostringstream text;
    for (const std::string& line : lines) text << line << '\n';
    NewFile file(path);
    file.KeepAccess();
    file.Fill(text.str());
    file.TakeFinalName();
}

}  // namespace cimxml
