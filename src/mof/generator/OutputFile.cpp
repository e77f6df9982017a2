#include <mof/generator/OutputFile.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace mof {

namespace {

bool Holds(const std::filesystem::path& file, const std::string& content) {
    std::ifstream stream(file, std::ios::binary);
    return stream && content == std::string(std::istreambuf_iterator<char>(stream), {});
}

}  // namespace

void WriteIfChanged(const std::filesystem::path& file, const std::string& content) {
    if (Holds(file, content)) {
        return;
    }
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    std::ofstream stream(file, std::ios::binary);
    stream << content << std::flush;
    if (!stream) {
        throw std::runtime_error("The file '" + file.string() + "' cannot be written.");
    }
}

}  // namespace mof
