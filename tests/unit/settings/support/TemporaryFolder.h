// A folder that goes away with its object.
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
        std::string name = (std::filesystem::temp_directory_path() / "bmci2c-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
        path = name;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    // The full path of a name in this folder.
    std::string File(const std::string& name) const { return (path / name).string(); }

    // Writes a file and gives its full path.
    std::string Write(const std::string& name, const std::string& text) const {
        std::ofstream(File(name), std::ios::binary) << text;
        return File(name);
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
