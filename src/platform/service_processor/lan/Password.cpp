#include <fcntl.h>
#include <platform/service_processor/TransportError.h>
#include <platform/service_processor/lan/Password.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace platform {

namespace {

constexpr std::array kLineEnds = {'\r', '\n', '\0'};

// Tells what is wrong with a file.
struct FileRefusal {
    const std::string& file;
    SecretKind kind;

    [[noreturn]] void operator()(const std::string& why, const std::string& advice = "") const {
        throw TransportError(kind.trouble,
                             std::string("The ") + kind.name + " file " + file + " " + why,
                             advice.empty() ? Advice() : advice);
    }

    std::string Advice() const {
        return std::string("Set ") + kind.name +
               "_file to a file that only its owner may read, with the " + kind.content +
               " in its first line.";
    }
};

class OpenFile {
public:
    // Non-blocking, so that a pipe without a writer is refused.
    explicit OpenFile(const std::string& path)
        : descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (descriptor >= 0) close(descriptor);
    }

    int Descriptor() const { return descriptor; }

private:
    int descriptor;
};

std::string OctalMode(mode_t mode) {
    std::string digits = "0";
    for (const unsigned shift : {6U, 3U, 0U}) {
        digits += static_cast<char>('0' + ((mode >> shift) & 7U));
    }
    return digits;
}

void CheckOwnersOnly(int descriptor, const FileRefusal& refuse) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0) {
        refuse("cannot be read: " + std::generic_category().message(errno) + ".");
    }
    if (!S_ISREG(status.st_mode)) refuse("is not a regular file.");
    if ((status.st_mode & (S_IRGRP | S_IROTH)) != 0) {
        refuse("may be read by others than its owner (mode " + OctalMode(status.st_mode) + ").",
               "Run: chmod 600 " + refuse.file);
    }
}

}  // namespace

// Delegates, so that the destructor wipes what was read when the constructor throws.
Password::Password(const std::string& file, std::size_t longest, SecretKind kind) : Password() {
    if (file.empty()) return;
    const FileRefusal refuse{.file = file, .kind = kind};
    const OpenFile opened(file);
    if (opened.Descriptor() < 0) {
        refuse("cannot be read: " + std::generic_category().message(errno) + ".");
    }
    CheckOwnersOnly(opened.Descriptor(), refuse);

    if (read(opened.Descriptor(), text.data(), text.size() - 1) < 0) {
        refuse("cannot be read: " + std::generic_category().message(errno) + ".");
    }
    const auto end =
        std::find_first_of(text.begin(), text.end(), kLineEnds.begin(), kLineEnds.end());
    const auto length = static_cast<std::size_t>(end - text.begin());
    std::fill(end, text.end(), '\0');
    if (length == 0) refuse(std::string("has no ") + kind.content + " in its first line.");
    if (length > longest) {
        refuse("has more than " + std::to_string(longest) +
               " bytes in its first line, which is longer than a " + kind.content + " can be.");
    }
}

Password::~Password() { explicit_bzero(text.data(), text.size()); }

}  // namespace platform
