#include <cimxml/http/Connection.h>
#include <cimxml/http/HttpServer.h>

#include <cerrno>
#include <memory>
#include <utility>

namespace cimxml {

namespace {

// Threads beyond those of served connections, which tell further clients to come back later.
constexpr std::size_t kRefusers = 4;
constexpr std::chrono::seconds kRefusalTime{2};
constexpr std::chrono::milliseconds kPauseWithoutDescriptors{100};
constexpr int kUnavailable = 503;

}  // namespace

HttpServer::HttpServer(Listener& itsListener, const Limits& itsLimits, const TlsContext* itsTls,
                       const HttpHandler& itsHandler, const StopSignal& stopSignal)
    : listener(itsListener),
      limits(itsLimits),
      tls(itsTls),
      handler(itsHandler),
      stop(stopSignal),
      workers(itsLimits.maxConnections + kRefusers) {}

void HttpServer::Run() {
    while (!stop.IsSet()) {
        constexpr std::chrono::hours kLong{1};
        if (!WaitForEither(stop.Readable(), listener.Socket(), Clock::now() + kLong).second)
            continue;
        Listener::Accepted accepted = listener.Accept();
        if (accepted.socket.IsOpen())
            Take(std::move(accepted));
        else if (errno != EAGAIN && errno != ECONNABORTED && errno != EINTR)
            stop.Sleep(kPauseWithoutDescriptors);
    }
}

void HttpServer::Take(Listener::Accepted accepted) {
    const bool isRefused = served >= limits.maxConnections;
    if (!isRefused) ++served;
    const auto shared = std::make_shared<Listener::Accepted>(std::move(accepted));
    const bool isTaken = workers.Start([this, shared, isRefused] {
        Serve(*shared, isRefused);
        if (!isRefused) --served;
    });
    if (!isTaken && !isRefused) --served;
}

std::unique_ptr<Stream> HttpServer::OpenStream(Descriptor socket, Deadline deadline) const {
    if (!tls) return ClearStream(std::move(socket));
    return tls->Accept(std::move(socket), deadline);
}

void HttpServer::Serve(Listener::Accepted& accepted, bool isRefused) const {
    try {
        const Deadline deadline = Clock::now() + (isRefused ? kRefusalTime : limits.requestTime);
        const std::unique_ptr<Stream> stream = OpenStream(std::move(accepted.socket), deadline);
        if (!isRefused)
            return ServeConnection(*stream, limits, handler, stop, {accepted.clientAddress, {}});
        HttpResponse response = TextResponse(
            kUnavailable, "The server has as many connections as it takes. Try again later.");
        response.headers.emplace_back("Retry-After", "1");
        RefuseConnection(*stream, response, deadline);
    } catch (const std::exception&) {
        // The client is gone or too slow. Its connection ends; there is nobody to tell.
    }
}

}  // namespace cimxml
