#include <cimxml/Server.h>
#include <cli/ExitCodes.h>
#include <cli/commands/Commands.h>
#include <pthread.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <thread>

namespace cli {

namespace {

using Seconds = std::chrono::seconds::rep;

// What the limits can be set to. References within references are read by recursion, which must not
// use up a thread's stack.
constexpr std::size_t kMostBytes = std::size_t{1} << 30;
constexpr std::size_t kMostDepth = 1000;
constexpr std::size_t kMostConnections = 10000;

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

void Log(const std::string& line) { std::cerr << "bmci2c: " + line + "\n"; }

int Serve(const Session& session, cimxml::ServerOptions options) {
    const EndSignals endSignals;
    options.interopSchema =
        std::filesystem::path(session.files.schema).replace_filename("interop.mof");
    options.version = BMCI2C_VERSION;
    const std::unique_ptr<host::Host> host = LoadHost(session);
    cimxml::Server server(options, *host, Log);
    std::cout << "bmci2c: serving at " << server.Url() << std::endl;
    const std::jthread running([&server] { server.Run(); });
    endSignals.Wait();
    server.Stop();
    return kSuccess;
}

// An option that stores a limit; its default is shown.
void AddLimit(CLI::App& command, const std::string& name, std::size_t& limit, std::size_t most,
              const std::string& form, const std::string& description) {
    command.add_option(name, limit, description)
        ->type_name(form)
        ->check(CLI::Range(std::size_t{1}, most))
        ->capture_default_str()
        ->group("Limits");
}

void AddTime(CLI::App& command, const std::string& name, std::chrono::seconds& time,
             const std::string& description) {
    command
        .add_option_function<Seconds>(
            name, [&time](Seconds seconds) { time = std::chrono::seconds(seconds); }, description)
        ->type_name("SECONDS")
        ->check(CLI::Range(Seconds{1}, Seconds{86400}))
        ->default_str(std::to_string(time.count()))
        ->group("Limits");
}

}  // namespace

void AddServe(CLI::App& app, Command& chosen) {
    CLI::App* const command =
        app.add_subcommand("serve", "Answer CIM-XML requests of management clients");
    const auto options = std::make_shared<cimxml::ServerOptions>();
    command
        ->add_option("--listen", options->listen, "Where clients connect; port 0 is any free one")
        ->type_name("ADDRESS:PORT")
        ->capture_default_str();
    command->add_option("--certificate", options->certificate, "Certificate for TLS, as PEM")
        ->type_name("FILE");
    command->add_option("--key", options->key, "The certificate's key, as PEM")->type_name("FILE");
    command
        ->add_option("--password-file", options->passwordFile,
                     "Answer these users only; written by bmci2c passwd")
        ->type_name("FILE");
    cimxml::Limits& limits = options->limits;
    AddLimit(*command, "--max-request-size", limits.maxRequestSize, kMostBytes, "BYTES",
             "Bytes of a request's document");
    AddLimit(*command, "--max-header-size", limits.maxHeaderSize, kMostBytes, "BYTES",
             "Bytes of a request's line and headers");
    AddLimit(*command, "--max-depth", limits.maxDepth, kMostDepth, "N",
             "Elements that lie within each other");
    AddLimit(*command, "--max-connections", limits.maxConnections, kMostConnections, "N",
             "Clients that are connected at once");
    AddTime(*command, "--request-time", limits.requestTime,
            "From a request's first byte to its last");
    AddTime(*command, "--idle-time", limits.idleTime, "Silence after which a connection is closed");
    command->footer(
        "On an address that other machines can reach, TLS and a password file are required.\n"
        "SIGTERM and SIGINT end the server when the requests under way are answered.");
    command->callback([&chosen, options] {
        chosen = [options](const Session& session) { return Serve(session, *options); };
    });
}

}  // namespace cli
