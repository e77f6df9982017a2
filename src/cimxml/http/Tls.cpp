#include <cimxml/http/Tls.h>
#include <openssl/err.h>
#include <openssl/ssl.h>

#include <algorithm>
#include <climits>
#include <system_error>

namespace cimxml {

namespace {

struct Free {
    void operator()(SSL_CTX* context) const { SSL_CTX_free(context); }
    void operator()(SSL* connection) const { SSL_free(connection); }
};

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

class TlsStream : public Stream {
public:
    TlsStream(Descriptor connected, SSL_CTX* context)
        : Stream(std::move(connected)), connection(SSL_new(context)) {
        if (!connection || SSL_set_fd(connection.get(), Socket()) != 1)
            throw ConnectionLost(Reason());
    }

    void Accept(Deadline deadline) {
        Transfer(deadline, [&] { return SSL_accept(connection.get()); });
    }

    std::size_t Read(char* buffer, std::size_t size, Deadline deadline) override {
        return Transfer(deadline, [&] {
            return SSL_read(connection.get(), buffer,
                            static_cast<int>(std::min<std::size_t>(size, INT_MAX)));
        });
    }

    void Write(std::string_view text, Deadline deadline) override {
        while (!text.empty()) {
            const int size = static_cast<int>(std::min<std::size_t>(text.size(), INT_MAX));
            const std::size_t count =
                Transfer(deadline, [&] { return SSL_write(connection.get(), text.data(), size); });
            if (count == 0) throw ConnectionLost("The client has closed its side.");
            text.remove_prefix(count);
        }
    }

    bool HasBytes() const override { return SSL_has_pending(connection.get()) == 1; }

protected:
    void SayGoodbye() override {
        ERR_clear_error();
        if (!isBroken) SSL_shutdown(connection.get());
    }

private:
    // Attempts until it succeeds; 0 when the client has closed its side.
    template <class Attempt>
    std::size_t Transfer(Deadline deadline, const Attempt& attempt) {
        for (;;) {
            ERR_clear_error();
            const int count = attempt();
            if (count > 0) return static_cast<std::size_t>(count);
            switch (SSL_get_error(connection.get(), count)) {
                case SSL_ERROR_WANT_READ:
                    Wait(POLLIN, deadline);
                    break;
                case SSL_ERROR_WANT_WRITE:
                    Wait(POLLOUT, deadline);
                    break;
                case SSL_ERROR_ZERO_RETURN:
                    return 0;
                default:
                    isBroken = true;  // after this OpenSSL allows no goodbye
                    throw ConnectionLost(Reason());
            }
        }
    }

    void Wait(short events, Deadline deadline) const {
        if (!WaitFor(Socket(), events, deadline)) throw TimedOut();
    }

    const std::unique_ptr<SSL, Free> connection;
    bool isBroken = false;
};

}  // namespace

struct TlsContext::State {
    std::unique_ptr<SSL_CTX, Free> context{SSL_CTX_new(TLS_server_method())};
};

TlsContext::TlsContext(const std::string& certificate, const std::string& key)
    : state(std::make_unique<State>()) {
    SSL_CTX* const context = state->context.get();
    if (!context) throw SetupError("TLS cannot be used: " + Reason() + ".");
    SSL_CTX_set_min_proto_version(context, TLS1_2_VERSION);
    SSL_CTX_set_options(context, SSL_OP_NO_RENEGOTIATION | SSL_OP_CIPHER_SERVER_PREFERENCE);
    SSL_CTX_set_mode(context, SSL_MODE_ENABLE_PARTIAL_WRITE | SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER);
    if (SSL_CTX_use_certificate_chain_file(context, certificate.c_str()) != 1)
        throw SetupError("The certificate '" + certificate + "' cannot be used: " + Reason() + ".");
    if (SSL_CTX_use_PrivateKey_file(context, key.c_str(), SSL_FILETYPE_PEM) != 1)
        throw SetupError("The key '" + key + "' cannot be used: " + Reason() + ".");
    if (SSL_CTX_check_private_key(context) != 1)
        throw SetupError("The key '" + key + "' is not that of the certificate '" + certificate +
                         "'.");
}

TlsContext::~TlsContext() = default;

std::unique_ptr<Stream> TlsContext::Accept(Descriptor socket, Deadline deadline) const {
    auto stream = std::make_unique<TlsStream>(std::move(socket), state->context.get());
    stream->Accept(deadline);
    return stream;
}

}  // namespace cimxml
