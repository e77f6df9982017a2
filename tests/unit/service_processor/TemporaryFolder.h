// A folder of a test's own, which goes away with all that is in it.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = testing::TempDir() + "/bmci2c-XXXXXX";
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("There is no place for a temporary folder.");
        }
        path = pattern;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    std::string File(const std::string& name) const { return path / name; }

    // Writes a file that only its owner may read and write, and makes the folders above it.
    std::string Write(const std::string& name, const std::string& text) const {
        const std::filesystem::path file = path / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file) << text;
        std::filesystem::permissions(
            file, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
        return file;
    }

    std::string Path() const { return path; }

private:
    std::filesystem::path path;
};
