// The file with the users who may send requests: a line "user:hash" each, the hash as crypt(3)
// makes it. Lines that are empty or begin with '#' are kept and mean nothing.
#pragma once

#include <cimxml/SetupError.h>

#include <string>
#include <vector>

namespace cimxml {

inline constexpr std::size_t kMostUserName = 200;  // bytes

struct User {
    std::string name;
    std::string hash;
};

// Reads the file. Throws SetupError when others than its owner and group can read it, when
// a line has not the form, or when it names no user.
std::vector<User> ReadPasswordFile(const std::string& path);

// Gives the user that password; makes the file, readable by its owner only, where there is none.
// The file is replaced at once: readers see the old one or the new one. Throws SetupError.
void SetPassword(const std::string& path, const std::string& user, const std::string& password);

// The hash of the password with the settings (method, cost, salt) of another hash; empty when these
// are of no use.
std::string HashLike(const std::string& password, const std::string& settings);

}  // namespace cimxml
