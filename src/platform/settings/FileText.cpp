#include <platform/settings/FileText.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace platform {

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

std::system_error Failure(int errorNumber) {
    return std::system_error(errorNumber, std::generic_category());
}

}  // namespace

std::string ReadFileText(const std::string& path, std::size_t longest) {
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "re"));
    if (!file) throw Failure(errno);
    std::string text;
    std::array<char, 4096> piece;
    while (const std::size_t length = std::fread(piece.data(), 1, piece.size(), file.get())) {
        text.append(piece.data(), length);
        if (text.size() > longest) throw Failure(EFBIG);
    }
    if (std::ferror(file.get()) != 0) throw Failure(errno);
    return text;
}

std::string ReasonText(int errorNumber) { return std::generic_category().message(errorNumber); }

}  // namespace platform
