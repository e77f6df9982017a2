#include <cimxml/Server.h>
#include <cimxml/access/Authenticator.h>
#include <cimxml/http/CimHandler.h>
#include <cimxml/load/Metrics.h>
#include <cimxml/net/HttpServer.h>
#include <cimxml/operations/InteropNameSpace.h>
#include <cimxml/operations/Operations.h>

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
    State(const ServerOptions& theOptions, host::Host& host, LogLine logLine)
        : options(theOptions),
          log(std::move(logLine)),
          listener(options.listen),
          operations(AllNameSpaces(options, host)),
          handler(operations, options.limits, log, MetricsText()),
          http(listener, options.limits, ReadTls(), handler, metrics) {
        handler.UseAuthenticator(ReadUsers());
        listener.Listen();
    }

    std::function<std::string()> MetricsText() {
        if (!options.metrics) return {};
        return [this] {
            return metrics.Text(options.version, options.logLinesLost ? options.logLinesLost() : 0);
        };
    }

    TlsContext ReadTls() const {
        CheckProtection(options, listener);
        return options.key.empty() ? nullptr : ReadTlsFiles(options.certificate, options.key);
    }

    std::shared_ptr<const Authenticator> ReadUsers() const {
        if (options.passwordFile.empty()) return nullptr;
        return std::make_shared<Authenticator>(ReadPasswordFile(options.passwordFile));
    }

    // Reloads something, or logs why the old one stays in use.
    template <class Use>
    void Renew(const std::string& what, const Use& use) const {
        try {
            use();
            log("The " + what + " been read again.");
        } catch (const SetupError& error) {
            log(std::string(error.what()) + " The old one stays in use.");
        }
    }

    const ServerOptions options;
    const LogLine log;
    Metrics metrics;
    Listener listener;
    const Operations operations;
    CimHandler handler;
    HttpServer http;
};

Server::Server(const ServerOptions& options, host::Host& host,
               std::function<void(const std::string&)> log)
    : state(std::make_unique<State>(options, host, std::move(log))) {}

Server::~Server() = default;

std::string Server::Url() const {
    return (state->options.key.empty() ? "http://" : "https://") + state->listener.Address() +
           "/cimom";
}

void Server::Run() { state->http.Run(); }

void Server::Stop() { state->http.Stop(); }

void Server::Reload() {
    State& server = *state;
    if (!server.options.key.empty())
        server.Renew("certificate has", [&] { server.http.UseTls(server.ReadTls()); });
    if (!server.options.passwordFile.empty())
        server.Renew("password file has",
                     [&] { server.handler.UseAuthenticator(server.ReadUsers()); });
}

}  // namespace cimxml
