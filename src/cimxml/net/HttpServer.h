// Takes connections and has their requests answered: one thread for all of them, which never waits,
// and a small pool that does the work.
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

    // Waits for the requests under way.
    ~HttpServer();

    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    // Takes connections until Stop() is called, from whichever thread, and the requests under way
    // are answered.
    void Run();
    void Stop();

    // For the connections that come after this; from whichever thread.
    void UseTls(TlsContext tls);

private:
    struct State;
    const std::unique_ptr<State> state;
};

}  // namespace cimxml
