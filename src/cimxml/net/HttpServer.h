// The HTTP server: one thread for all connections, which never blocks, and a small thread pool for
// the work.
#pragma once

#include <cimxml/load/Metrics.h>
#include <cimxml/net/HttpHandler.h>
#include <cimxml/net/Limits.h>
#include <cimxml/net/Listener.h>
#include <cimxml/net/Tls.h>

#include <memory>

namespace cimxml {

class HttpServer {
public:
    // `tls`: null for connections in clear. All others must outlive this.
    HttpServer(const Listener& listener, const Limits& limits, TlsContext tls,
               const HttpHandler& handler, Metrics& metrics);

    // Waits for the requests in progress.
    ~HttpServer();

    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    // Accepts connections until Stop() is called, from any thread, and the requests in progress are
    // answered.
    void Run();
    void Stop();

    // For later connections; from any thread.
    void UseTls(TlsContext tls);

private:
    struct State;
    const std::unique_ptr<State> state;
};

}  // namespace cimxml
