// Tells users from strangers by HTTP's Basic credentials.
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
        std::string user;  // who the client says that it is, quoted for the log
    };

    // Judges an Authorization header. A stranger's takes as long as that of a user with a wrong
    // password. May be called from several threads at once.
    Verdict Judge(const std::string& authorization) const;

    // True when both texts are the same; how long it takes tells only their lengths.
    static bool IsSame(std::string_view a, std::string_view b);

private:
    const std::vector<User> users;
};

}  // namespace cimxml
