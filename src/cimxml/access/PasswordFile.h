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
// a line has not the form, when it names no user or one twice, or when its hashes are not safe
// (HashKind.h) or not all of one kind.
std::vector<User> ReadPasswordFile(const std::string& path);

// Gives the user that password; makes the file, readable by its owner only, where there is none.
// The file is replaced at once: readers see the old one or the new one. A symbolic link stays, and
// what it means is replaced. Waits for others who set a password. Throws SetupError, also for what
// is not a regular file and when a user stands twice.
void SetPassword(const std::string& path, const std::string& user, const std::string& password);

// The hash of the password with the settings (method, cost, salt) of another hash; empty when these
// are of no use.
std::string HashLike(const std::string& password, const std::string& settings);

}  // namespace cimxml
