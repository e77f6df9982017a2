// Takes connections and has their requests answered, each connection by a thread.
#pragma once

#include <cimxml/http/HttpHandler.h>
#include <cimxml/http/Limits.h>
#include <cimxml/http/Listener.h>
#include <cimxml/http/StopSignal.h>
#include <cimxml/http/Tls.h>
#include <cimxml/http/Workers.h>

#include <atomic>
#include <cstddef>

namespace cimxml {

class HttpServer {
public:
    // `tls`: null for connections in clear. All must outlive this.
    HttpServer(Listener& itsListener, const Limits& itsLimits, const TlsContext* itsTls,
               const HttpHandler& itsHandler, const StopSignal& stopSignal);

    // Takes connections until the server is to end. Requests under way are answered before this
    // object goes.
    void Run();

private:
    void Take(Listener::Accepted accepted);
    void Serve(Listener::Accepted& accepted, bool isRefused) const;
    std::unique_ptr<Stream> OpenStream(Descriptor socket, Deadline deadline) const;

    Listener& listener;
    const Limits& limits;
    const TlsContext* const tls;
    const HttpHandler& handler;
    const StopSignal& stop;
    std::atomic<std::size_t> served = 0;  // connections whose requests are answered
    Workers workers;
};

}  // namespace cimxml
