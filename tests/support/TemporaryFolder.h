// A folder of a test's own, which goes away with all that is in it.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = std::filesystem::temp_directory_path() / "bmci2c-XXXXXX";
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("No temporary folder could be made at " + pattern + ".");
        }
        path = pattern;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    std::string Path() const { return path; }

    // The full path of a name in this folder.
    std::string File(const std::string& name) const { return path / name; }

    // Writes a file that only its owner may read and write, and makes the folders above it. Gives
    // its full path.
    std::string Write(const std::string& name, const std::string& text) const {
        const std::filesystem::path file = path / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
        std::filesystem::permissions(
            file, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
        return file;
    }

private:
    std::filesystem::path path;
};

// The lines of a file, without their breaks.
inline std::vector<std::string> LinesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}
