#include <mof/Parser.h>
#include <mof/Reader.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace mof {

namespace {

// Far more than a schema needs; they stop endless input (a file that includes itself, a device)
// with an error.
constexpr std::size_t kMaxFiles = 100;
constexpr std::size_t kMaxFileBytes = 4 * 1024 * 1024;

// The content of a file. `blame` is the place that an error is reported at.
std::string ReadContent(const std::filesystem::path& path, const Place& blame) {
    const std::string name = "'" + path.string() + "'";
    std::error_code ignored;  // whatever keeps is_directory from its answer also fails the opening
    if (std::filesystem::is_directory(path, ignored)) {
        Fail(blame, "The file " + name + " cannot be read: it is a directory.");
    }
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    std::string content(kMaxFileBytes + 1, '\0');
    stream.read(content.data(), static_cast<std::streamsize>(content.size()));
    if (!stream.is_open() || stream.bad()) {
        Fail(blame, "The file " + name +
                        " cannot be read: " + std::generic_category().message(errno) + ".");
    }
    content.resize(static_cast<std::size_t>(stream.gcount()));
    content.shrink_to_fit();
    if (content.size() > kMaxFileBytes) {
        Fail(blame,
             "The file " + name + " is larger than " + std::to_string(kMaxFileBytes) + " bytes.");
    }
    return content;
}

class FileReader {
public:
    void Read(const std::filesystem::path& path, const Place& blame) {
        if (++fileCount > kMaxFiles) {
            Fail(blame, "More than " + std::to_string(kMaxFiles) +
                            " files are included; one of them may include itself.");
        }
        const std::string content = ReadContent(path, blame);
        Parse(content, path.string(), declarations,
              [&](const std::string& file, const Place& place) {
                  Read(path.parent_path() / file, place);
              });
    }

    Schema TakeSchema() { return declarations.TakeSchema(); }

private:
    Declarations declarations;
    std::size_t fileCount = 0;
};

}  // namespace

Schema ReadFile(const std::string& path) {
    FileReader reader;
    reader.Read(path, Place{std::make_shared<const std::string>(path)});
    return reader.TakeSchema();
}

Schema ReadText(const std::string& text, const std::string& name) {
    Declarations declarations;
    Parse(text, name, declarations, [](const std::string& file, const Place& place) {
        Fail(place, "A text cannot include a file; '" + file + "' is not read.");
    });
    return declarations.TakeSchema();
}

}  // namespace mof
