#include <cimxml/access/Authenticator.h>
#include <cimxml/access/Quoted.h>
#include <mof/Names.h>
#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <utility>

namespace cimxml {

namespace {

constexpr std::string_view kScheme = "Basic ";
constexpr std::size_t kMostCredentials = 1024;  // characters; a hash of longer ones costs too much

// The "user:password" of the header; empty if there is none.
std::string Decoded(std::string_view authorization) {
    if (authorization.size() > kMostCredentials ||
        !mof::SameName(authorization.substr(0, kScheme.size()), kScheme))
        return {};
    authorization.remove_prefix(kScheme.size());
    const auto padding = authorization.size() - (authorization.find_last_not_of('=') + 1);
    std::string decoded(authorization.size(), '\0');
    const int size = EVP_DecodeBlock(reinterpret_cast<unsigned char*>(decoded.data()),
                                     reinterpret_cast<const unsigned char*>(authorization.data()),
                                     static_cast<int>(authorization.size()));
    if (size < 0 || padding > 2 || static_cast<std::size_t>(size) < padding) return {};
    decoded.resize(static_cast<std::size_t>(size) - padding);
    return decoded;
}

}  // namespace

Authenticator::Authenticator(std::vector<User> knownUsers) : users(std::move(knownUsers)) {}

bool Authenticator::IsSame(std::string_view a, std::string_view b) {
    return a.size() == b.size() && CRYPTO_memcmp(a.data(), b.data(), a.size()) == 0;
}

Authenticator::Verdict Authenticator::Authenticate(const std::string& authorization) const {
    const std::string credentials = Decoded(authorization);
    const auto colon = credentials.find(':');
    const std::string name = credentials.substr(0, colon);
    const std::string password = colon == std::string::npos ? "" : credentials.substr(colon + 1);
    // crypt() ends a password at NUL, so the part before it would be accepted.
    const bool isWhole = password.find('\0') == std::string::npos;
    // For an unknown user, the first user's hash is computed and ignored, so that the time is the
    // same.
    const User* judged = &users.front();
    bool isKnown = false;
    for (const User& user : users) {
        const bool isIt = IsSame(user.name, name);
        judged = isIt ? &user : judged;
        isKnown = isKnown || isIt;
    }
    const bool isRight = IsSame(HashLike(password, judged->hash), judged->hash);
    return {isKnown && isRight && isWhole, Quoted(name)};
}

}  // namespace cimxml
