#include <cimxml/Server.h>
#include <cimxml/access/Authenticator.h>
#include <cimxml/http/CimHandler.h>
#include <cimxml/http/HttpServer.h>
#include <cimxml/operations/InteropNameSpace.h>
#include <cimxml/operations/Operations.h>

#include <optional>
#include <utility>

namespace cimxml {

namespace {

void CheckProtection(const ServerOptions& options, const Listener& listener) {
    if (options.certificate.empty() != options.key.empty())
        throw SetupError("TLS needs both a certificate and its key.");
    if (!listener.IsLoopback() && (options.key.empty() || options.passwordFile.empty()))
        throw SetupError("Other machines can reach '" + options.listen +
                         "'. The server listens there only with TLS (a certificate and its key) "
                         "and a password file.");
}

NameSpaces AllNameSpaces(const ServerOptions& options, host::Host& host) {
    NameSpaces all = ProviderNameSpaces(host);
    std::vector<std::string> names;
    for (const auto& nameSpace : all) names.push_back(nameSpace->name);
    all.push_back(InteropNameSpace(options.interopSchema, options.version, names));
    return all;
}

}  // namespace

struct Server::State {
    State(const ServerOptions& theOptions, host::Host& host, LogLine log)
        : options(theOptions),
          listener(options.listen),
          operations(AllNameSpaces(options, host)),
          handler(operations, options.limits, MakeAuthenticator(), stop, std::move(log)),
          http(listener, options.limits, MakeTls(), handler, stop) {
        listener.Listen();
    }

    const Authenticator* MakeAuthenticator() {
        CheckProtection(options, listener);
        if (options.passwordFile.empty()) return nullptr;
        return &authenticator.emplace(ReadPasswordFile(options.passwordFile));
    }

    const TlsContext* MakeTls() {
        if (options.key.empty()) return nullptr;
        return &tls.emplace(options.certificate, options.key);
    }

    const ServerOptions options;
    Listener listener;
    StopSignal stop;
    std::optional<Authenticator> authenticator;
    std::optional<TlsContext> tls;
    const Operations operations;
    const CimHandler handler;
    HttpServer http;
};

Server::Server(const ServerOptions& options, host::Host& host,
               std::function<void(const std::string&)> log)
    : state(std::make_unique<State>(options, host, std::move(log))) {}

Server::~Server() { state->stop.Set(); }

std::string Server::Url() const {
    return (state->tls ? "https://" : "http://") + state->listener.Address() + "/cimom";
}

void Server::Run() { state->http.Run(); }

void Server::Stop() { state->stop.Set(); }

}  // namespace cimxml
