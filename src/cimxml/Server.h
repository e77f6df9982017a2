// A CIM server: CIM-XML over HTTP in front of the embedded host.
//
//     cimxml::Server server({.listen = "127.0.0.1:5988", .interopSchema = path}, host, log);
//     std::cout << server.Url() << std::endl;
//     server.Run();  // until another thread calls Stop()
#pragma once

#include <cimxml/SetupError.h>
#include <cimxml/net/Limits.h>
#include <host/Host.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace cimxml {

struct ServerOptions {
    std::string listen = "127.0.0.1:5988";  // port 0: any free one
    std::string certificate = {};           // with key: TLS
    std::string key = {};
    std::string passwordFile = {};  // empty: no authentication
    std::string interopSchema = {};
    std::string version = {};  // the version of the object manager
    bool metrics = false;      // answer GET /metrics
    Limits limits = {};
    std::function<std::uint64_t()> logLinesLost = {};  // for the metrics
};

class Server {
public:
    // Listens at the address. Serves other machines only with TLS and password. `log` takes lines,
    // from several threads concurrently. The host must outlive the server. Throws SetupError and
    // host::LoadError.
    Server(const ServerOptions& options, host::Host& host,
           std::function<void(const std::string&)> log);

    // Waits for the requests in progress.
    ~Server();

    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    // Where clients find the server, with the port that was chosen.
    std::string Url() const;

    // Answers requests until Stop() is called, from any thread.
    void Run();
    void Stop();

    // Reloads certificate, key and password file for later connections and requests. If one cannot
    // be used, the old one stays in use; both cases are logged.
    void Reload();

private:
    struct State;
    const std::unique_ptr<State> state;
};

}  // namespace cimxml
