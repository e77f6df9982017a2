#include <cimxml/Server.h>
#include <cli/ErrorOutput.h>
#include <cli/ExitCodes.h>
#include <cli/commands/Commands.h>
#include <pthread.h>

#include <csignal>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <thread>

namespace cli {

namespace {

// What the limits can be set to. References within references are read by recursion, which must not
// use up a thread's stack.
constexpr std::size_t kMostBytes = std::size_t{1} << 30;
constexpr std::size_t kMostDepth = 1000;
constexpr std::size_t kMostConnections = 10000;
constexpr std::chrono::hours kMostTime{24};

// Keeps the signals that ask the server to end for Wait(). To be made before other threads are,
// because they inherit what is blocked.
class EndSignals {
public:
    EndSignals() {
        sigemptyset(&signals);
        sigaddset(&signals, SIGTERM);
        sigaddset(&signals, SIGINT);
        ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
        // A client that goes away while it is answered is no reason to end.
        std::signal(SIGPIPE, SIG_IGN);
    }

    void Wait() const {
        int signal = 0;
        sigwait(&signals, &signal);
    }

private:
    sigset_t signals{};
};

int Serve(const Session& session, cimxml::ServerOptions options) {
    const EndSignals endSignals;
    options.interopSchema =
        std::filesystem::path(session.files.schema).replace_filename("interop.mof");
    options.version = BMCI2C_VERSION;
    const std::unique_ptr<host::Host> host = LoadHost(session);
    cimxml::Server server(options, *host, PrintError);
    std::cout << "bmci2c: serving at " << server.Url() << std::endl;
    const std::jthread running([&server] { server.Run(); });
    endSignals.Wait();
    server.Stop();
    return kSuccess;
}

}  // namespace

void AddServe(CommandSet& commands) {
    const auto options = std::make_shared<cimxml::ServerOptions>();
    cimxml::Limits& limits = options->limits;
    commands
        .Add("serve", "Answer CIM-XML requests of management clients",
             [options](const Session& session) { return Serve(session, *options); })
        .Text("--listen", "ADDRESS:PORT", options->listen,
              "Where clients connect; port 0 is any free one")
        .Text("--certificate", "FILE", options->certificate, "Certificate for TLS, as PEM")
        .Text("--key", "FILE", options->key, "The certificate's key, as PEM")
        .Text("--password-file", "FILE", options->passwordFile,
              "Answer these users only; written by bmci2c passwd")
        .Limit("--max-request-size", "BYTES", limits.maxRequestSize, kMostBytes,
               "Bytes of a request's document")
        .Limit("--max-header-size", "BYTES", limits.maxHeaderSize, kMostBytes,
               "Bytes of a request's line and headers")
        .Limit("--max-depth", "N", limits.maxDepth, kMostDepth, "Maximum nesting depth of elements")
        .Limit("--max-connections", "N", limits.maxConnections, kMostConnections,
               "Clients that are connected at once")
        .Limit("--request-time", limits.requestTime, kMostTime,
               "From a request's first byte to its last")
        .Limit("--idle-time", limits.idleTime, kMostTime,
               "Silence after which a connection is closed")
        .Footer(
            "On an address that other machines can reach, TLS and a password file are required.\n"
            "SIGTERM and SIGINT end the server when the requests under way are answered.");
}

}  // namespace cli
