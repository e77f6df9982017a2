// The file with the users who may send requests: a line "user:hash" each, the hash as crypt(3)
// makes it. Empty lines and lines that begin with '#' are kept and ignored.
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

// Reads the file. Throws SetupError when others than its owner and group can read it, if a line is
// malformed, if the file names no user or one twice, or if its hashes are not safe (HashKind.h) or
// not all of one kind.
std::vector<User> ReadPasswordFile(const std::string& path);

// Gives the user that password; creates the file, readable by its owner only, if it does not exist.
// The file is replaced atomically: readers see the old one or the new one. A symbolic link stays;
// its target is replaced. Waits for other writers. Throws SetupError, also if the path is not a
// regular file or a user is listed twice.
void SetPassword(const std::string& path, const std::string& user, const std::string& password);

// The hash of the password with the settings (method, cost, salt) of another hash; empty if these
// cannot be used.
std::string HashLike(const std::string& password, const std::string& settings);

}  // namespace cimxml
