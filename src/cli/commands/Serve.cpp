#include <cimxml/Server.h>
#include <cimxml/load/LogQueue.h>
#include <cli/ErrorOutput.h>
#include <cli/ExitCodes.h>
#include <cli/commands/Commands.h>
#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <future>
#include <iostream>
#include <memory>
#include <string>

namespace cli {

namespace {

// What the limits can be set to. References within references are read by recursion, which must not
// use up a thread's stack.
constexpr std::size_t kMostBytes = std::size_t{1} << 30;
constexpr std::size_t kMostDepth = 1000;
constexpr std::size_t kMostConnections = 10000;
constexpr std::chrono::hours kMostTime{24};

// Beyond the time limit of the controller that a run is asking.
constexpr std::chrono::seconds kTimeToEnd{5};

// Blocks the signals that the server handles and leaves them to Wait(). Construct it before other
// threads, which inherit the signal mask.
class Signals {
public:
    Signals() {
        sigemptyset(&signals);
        for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&signals, signal);
        ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
        // A client that disconnects during a response must not end the server.
        std::signal(SIGPIPE, SIG_IGN);
    }

    int Wait() const {
        int signal = 0;
        sigwait(&signals, &signal);
        return signal;
    }

    // Waits for a signal that ends the server; false after the timeout.
    bool WaitForEnd(std::chrono::milliseconds time) const {
        constexpr long kNanoseconds = 1'000'000;  // of a millisecond
        const timespec span{0, static_cast<long>(time.count()) * kNanoseconds};
        const int signal = ::sigtimedwait(&signals, nullptr, &span);
        return signal == SIGTERM || signal == SIGINT;
    }

private:
    sigset_t signals{};
};

// How long any controller may leave a request unanswered.
std::chrono::seconds LongestTimeLimit(const platform::Settings& settings) {
    int longest = settings.timeLimit.value;
    const auto& controllers = settings.controllers.value;
    if (controllers)
        for (const auto& controller : *controllers)
            longest = std::max(longest, controller.timeLimit.value_or(longest));
    return std::chrono::seconds(longest);
}

// Waits until the server, which was told to stop, has ended.
void AwaitEnd(const std::future<void>& running, const Signals& signals, cimxml::LogQueue& log,
              std::chrono::seconds time) {
    using namespace std::chrono_literals;
    const auto deadline = std::chrono::steady_clock::now() + time;
    while (running.wait_for(0s) != std::future_status::ready) {
        const bool isHurried = signals.WaitForEnd(50ms);
        if (!isHurried && std::chrono::steady_clock::now() < deadline) continue;
        log.Write(ErrorLine("The server ends without the requests under way."));
        log.Flush();
        std::_Exit(kSuccess);  // a thread that runs a request cannot be ended in any other way
    }
}

int Serve(const Session& session, cimxml::ServerOptions options) {
    const Signals signals;
    cimxml::LogQueue log(STDERR_FILENO, "bmci2c: ");
    const auto say = [&log](const std::string& message) { log.Write(ErrorLine(message)); };
    options.interopSchema =
        std::filesystem::path(session.files.schema).replace_filename("interop.mof");
    options.version = BMCI2C_VERSION;
    options.logLinesLost = [&log] { return log.Lost(); };
    const std::unique_ptr<host::Host> host = LoadHost(session, say);
    cimxml::Server server(options, *host, say);
    std::cout << "bmci2c: serving at " << server.Url() << std::endl;
    const std::future<void> running = std::async(std::launch::async, [&server] { server.Run(); });
    while (signals.Wait() == SIGHUP) server.Reload();
    server.Stop();
    AwaitEnd(running, signals, log, LongestTimeLimit(session.settings) + kTimeToEnd);
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
        .Flag("--metrics", options->metrics, "Answer GET /metrics with OpenMetrics text")
        .Limit("--max-request-size", "BYTES", limits.maxRequestSize, kMostBytes,
               "Bytes of a request's document")
        .Limit("--max-header-size", "BYTES", limits.maxHeaderSize, kMostBytes,
               "Bytes of a request's line and headers")
        .Limit("--max-depth", "N", limits.maxDepth, kMostDepth, "Maximum nesting depth of elements")
        .Limit("--max-connections", "N", limits.maxConnections, kMostConnections,
               "Simultaneous connections")
        .Limit("--max-connections-per-address", "N", limits.maxConnectionsPerAddress,
               kMostConnections, "Simultaneous connections from one address")
        .Limit("--first-request-time", limits.firstRequestTime, kMostTime,
               "From the connection to the first request's headers")
        .Limit("--request-time", limits.requestTime, kMostTime,
               "From a request's first byte to its last")
        .Limit("--idle-time", limits.idleTime, kMostTime, "Keep-alive timeout between requests")
        .Limit("--run-wait", limits.runWait, kMostTime,
               "How long RunDiagnostic waits for another run to end")
        .Footer(
            "On an address that other machines can reach, TLS and a password file are required.\n"
            "SIGTERM and SIGINT end the server when the requests in progress are answered; a "
            "second "
            "signal ends it at once. SIGHUP reloads certificate, key and password file.");
}

}  // namespace cli
