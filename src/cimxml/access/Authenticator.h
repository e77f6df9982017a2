// Authentication with HTTP Basic credentials.
#pragma once

#include <cimxml/access/PasswordFile.h>

#include <string>
#include <string_view>
#include <vector>

namespace cimxml {

class Authenticator {
public:
    // At least one user.
    explicit Authenticator(std::vector<User> knownUsers);

    struct Verdict {
        bool isGranted;
        std::string user;  // the user name that the client gave, quoted for the log
    };

    // Checks an Authorization header. An unknown user takes as long as a wrong password. May be
    // called from several threads concurrently.
    Verdict Authenticate(const std::string& authorization) const;

    // True if both texts are equal; the time depends on their lengths only.
    static bool IsSame(std::string_view a, std::string_view b);

private:
    const std::vector<User> users;
};

}  // namespace cimxml
