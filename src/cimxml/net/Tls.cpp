#include <cimxml/net/Tls.h>
#include <openssl/err.h>
#include <sys/stat.h>

#include <boost/asio/ssl/context.hpp>
#include <system_error>
#include <utility>  // which Asio lacks

namespace cimxml {

namespace {

// The TLS 1.2 suites with forward secrecy; all of TLS 1.3 have it.
constexpr const char* kCiphers = "ECDHE+AESGCM:ECDHE+CHACHA20";

// What OpenSSL says about its last failure on this thread; the system's own reason where that is
// behind it.
std::string Reason() {
    const unsigned long code = ERR_peek_last_error();
    const unsigned long cause = ERR_peek_error();
    if (ERR_SYSTEM_ERROR(cause)) {
        ERR_clear_error();
        return std::generic_category().message(ERR_GET_REASON(cause));
    }
    const char* const reason = code == 0 ? nullptr : ERR_reason_error_string(code);
    ERR_clear_error();
    return reason ? reason : "no reason given";
}

void CheckKeyIsPrivate(const std::string& key) {
    struct stat status {};
    if (::stat(key.c_str(), &status) == 0 && (status.st_mode & S_IRWXO))
        throw SetupError("The key '" + key +
                         "' is open to every user of this machine; say 'chmod o= " + key + "'.");
}

}  // namespace

TlsContext ReadTlsFiles(const std::string& certificate, const std::string& key) {
    auto tls = std::make_shared<boost::asio::ssl::context>(boost::asio::ssl::context::tls_server);
    SSL_CTX* const context = tls->native_handle();
    ERR_clear_error();
    SSL_CTX_set_min_proto_version(context, TLS1_2_VERSION);
    SSL_CTX_set_options(context, SSL_OP_NO_RENEGOTIATION | SSL_OP_CIPHER_SERVER_PREFERENCE);
    SSL_CTX_set_mode(context, SSL_MODE_RELEASE_BUFFERS);
    if (SSL_CTX_set_cipher_list(context, kCiphers) != 1)
        throw SetupError("TLS cannot be used: " + Reason() + ".");
    if (SSL_CTX_use_certificate_chain_file(context, certificate.c_str()) != 1)
        throw SetupError("The certificate '" + certificate + "' cannot be used: " + Reason() + ".");
    if (SSL_CTX_use_PrivateKey_file(context, key.c_str(), SSL_FILETYPE_PEM) != 1)
        throw SetupError("The key '" + key + "' cannot be used: " + Reason() + ".");
    if (SSL_CTX_check_private_key(context) != 1)
        throw SetupError("The key '" + key + "' is not that of the certificate '" + certificate +
                         "'.");
    CheckKeyIsPrivate(key);
    return tls;
}

}  // namespace cimxml
