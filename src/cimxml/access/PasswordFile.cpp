#include <cimxml/access/HashKind.h>
#include <cimxml/access/PasswordFile.h>
#include <cimxml/access/Quoted.h>
#include <cimxml/net/Descriptor.h>
#include <crypt.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <map>
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

void CheckIsFile(const std::string& path, const struct stat& status) {
    if (!S_ISREG(status.st_mode)) Fail(path, "is not a regular file");
}

void CheckPermissions(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) FailWithErrno(path, "cannot be read");
    CheckIsFile(path, status);
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

// True if crypt() could have made it. From anything else that looks like the beginning of a hash,
// such as a clear-text password, crypt() makes a longer text.
bool IsHash(const std::string& text) {
    return !text.empty() && HashLike("", text).size() == text.size();
}

// The user of a line; nothing for a comment or an empty line.
std::optional<User> ParseLine(const std::string& line) {
    if (line.empty() || line.front() == '#') return std::nullopt;
    const auto colon = std::min(line.find(':'), line.size());
    return User{line.substr(0, colon), line.substr(std::min(colon + 1, line.size()))};
}

void CheckHash(const std::string& hash, const std::string& path, const std::string& line) {
    const bool isTaken = !KindOf(hash).empty();
    if (!isTaken && (hash.starts_with('$') || IsHash(hash)))
        Fail(path, "has a hash in line " + line +
                       " that is not safe here: it cuts passwords, has no salt, or takes too much "
                       "memory; write it with 'bmci2c passwd'");
    if (!isTaken || !IsHash(hash))
        Fail(path, "has no user and hash in line " + line + "; write it with 'bmci2c passwd'");
}

// The lines of a file by the users that they name. Throws SetupError if a user is listed twice.
class UserLines {
public:
    explicit UserLines(const std::string& itsPath) : path(itsPath), lines(ReadLines(path)) {
        for (std::size_t at = 0; at < lines.size(); ++at) {
            const auto user = ParseLine(lines[at]);
            if (!user) continue;
            const auto [former, isNew] = places.emplace(user->name, at);
            if (!isNew)
                Fail(path, "names the user " + Quoted(user->name) + " twice, in lines " +
                               std::to_string(former->second + 1) + " and " +
                               std::to_string(at + 1) + "; remove one of them");
        }
    }

    void Set(const std::string& user, const std::string& line) {
        const auto place = places.find(user);
        if (place == places.end())
            lines.push_back(line);
        else
            lines[place->second] = line;
    }

    const std::vector<std::string>& Lines() const { return lines; }

private:
    const std::string path;
    std::vector<std::string> lines;
    std::map<std::string, std::size_t> places;
};

void CheckUserName(const std::string& name) {
    const bool isPlain = std::all_of(name.begin(), name.end(), [](char letter) {
        return letter != ':' && static_cast<unsigned char>(letter) >= ' ' && letter != '\x7F';
    });
    if (name.empty() || name.front() == '#' || !isPlain)
        throw SetupError("The user name " + Quoted(name) +
                         " cannot be used: it must not be empty, begin with '#' or hold "
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
    // crypt() would end it there, and the part before would be accepted as the password.
    if (password.find('\0') != std::string::npos)
        throw SetupError("The password holds a NUL character.");
}

std::string NewHash(const std::string& password) {
    char settings[CRYPT_GENSALT_OUTPUT_SIZE] = {};
    // The library's best method with its default cost and a random salt.
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

// True when there is such a file. Throws SetupError when it is a device, a folder or the like.
bool Exists(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return false;
    CheckIsFile(path, status);
    return true;
}

// The file that the path resolves to, through symbolic links.
std::string Target(const std::string& path) {
    std::error_code failure;
    if (!std::filesystem::is_symlink(path, failure)) return path;
    const auto target = std::filesystem::canonical(path, failure);
    if (failure) Fail(path, "cannot be written: " + failure.message());
    return target.string();
}

// Keeps other writers away. The file itself cannot be locked: it is replaced as a whole.
class FolderLock {
public:
    explicit FolderLock(const std::string& path)
        : folder(::open(std::filesystem::absolute(path).parent_path().c_str(),
                        O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        if (!folder.IsOpen() || ::flock(folder.Get(), LOCK_EX) != 0)
            FailWithErrno(path, "cannot be written");
    }

private:
    const Descriptor folder;
};

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
    const UserLines all(path);
    std::vector<User> users;
    std::size_t number = 0;
    for (const std::string& line : all.Lines()) {
        ++number;
        const auto user = ParseLine(line);
        if (!user) continue;
        if (user->name.empty())
            Fail(path, "has no user and hash in line " + std::to_string(number) +
                           "; write it with 'bmci2c passwd'");
        CheckHash(user->hash, path, std::to_string(number));
        users.push_back(*user);
        // The time for a wrong password must not reveal which user's hash it was compared with.
        if (KindOf(user->hash) != KindOf(users.front().hash))
            Fail(path, "has hashes of different kinds, " + KindOf(users.front().hash) + " and " +
                           KindOf(user->hash) +
                           "; set the password of every user with 'bmci2c passwd'");
    }
    if (users.empty()) Fail(path, "names no user; add one with 'bmci2c passwd'");
    return users;
}

void SetPassword(const std::string& path, const std::string& user, const std::string& password) {
    CheckUserName(user);
    CheckPassword(password);
    const std::string entry = user + ":" + NewHash(password);
    const std::string target = Target(path);
    const FolderLock noOtherWriter(target);
    std::ostringstream text;
    if (Exists(target)) {
        UserLines lines(target);
        lines.Set(user, entry);
        for (const std::string& line : lines.Lines()) text << line << '\n';
    } else {
        text << entry << '\n';
    }
    NewFile file(target);
    file.KeepAccess();
    file.Fill(text.str());
    file.TakeFinalName();
}

}  // namespace cimxml
