#include <cimxml/net/Connection.h>
#include <cimxml/net/HttpServer.h>
#include <sys/socket.h>

#include <boost/asio/basic_socket_acceptor.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/redirect_error.hpp>
#include <boost/asio/use_awaitable.hpp>
#include <new>
#include <thread>

namespace cimxml {

namespace {

namespace asio = boost::asio;

constexpr asio::use_awaitable_t<Executor> kAwaitable;
constexpr std::chrono::milliseconds kTick{250};  // poll interval of the deadlines
constexpr std::chrono::milliseconds kPauseWithoutDescriptors{100};
constexpr std::size_t kHashes = 2;  // concurrently; PasswordFile.h bounds the memory of one
constexpr std::size_t kRuns = 1;
constexpr std::size_t kLeastReaders = 2;

// Enough threads that hashes and a run never block reading instances.
std::size_t PoolSize() {
    return kHashes + kRuns +
           std::max<std::size_t>(kLeastReaders, std::thread::hardware_concurrency());
}

}  // namespace

struct HttpServer::State {
    using Acceptor = asio::basic_socket_acceptor<asio::ip::tcp, Executor>;

    State(const Listener& itsListener, const Limits& limits, TlsContext tls,
          const HttpHandler& handler, Metrics& itsMetrics)
        : listener(itsListener),
          metrics(itsMetrics),
          pool(PoolSize()),
          shared{limits, handler, itsMetrics, pool, std::move(tls), Turns(kHashes), Turns(kRuns)},
          table(limits),
          acceptor(io),
          tick(io) {}

    void Run() {
        const auto protocol =
            listener.Family() == AF_INET6 ? asio::ip::tcp::v6() : asio::ip::tcp::v4();
        acceptor.assign(protocol, ::dup(listener.Socket()));
        // If one of these two ends, so does the server.
        const auto rethrow = [](const std::exception_ptr& failure) {
            if (failure) std::rethrow_exception(failure);
        };
        asio::co_spawn(io, Accept(), rethrow);
        asio::co_spawn(io, Watch(), rethrow);
        io.run();
    }

    void Serve(Socket socket) {
        const auto connection = std::make_shared<Connection>(std::move(socket), shared);
        const auto admission = table.Admit(*connection);
        metrics.connectionsDisplaced = table.Displaced();
        const bool isServed = admission == ConnectionTable::Admission::Served;
        ++(isServed ? metrics.connectionsAccepted : metrics.connectionsRefused);
        if (admission == ConnectionTable::Admission::Dropped) return;
        metrics.connections = table.Count();
        // The coroutine throws only if the client has disconnected or memory is exhausted.
        asio::co_spawn(io, isServed ? connection->Serve() : connection->Refuse(),
                       [this, connection](const std::exception_ptr&) {
                           table.Remove(*connection);
                           metrics.connections = table.Count();
                           if (shared.isStopping && table.IsEmpty()) tick.cancel();
                       });
    }

    // If memory is short for one connection, the others continue.
    void TryToServe(Socket socket) {
        try {
            Serve(std::move(socket));
        } catch (const std::bad_alloc&) {
            ++metrics.connectionsRefused;
        }
    }

    Task<> Accept() {
        while (!shared.isStopping) {
            boost::system::error_code failure;
            Socket socket =
                co_await acceptor.async_accept(io, asio::redirect_error(kAwaitable, failure));
            if (!failure) {
                TryToServe(std::move(socket));
            } else if (failure != asio::error::connection_aborted && !shared.isStopping) {
                Timer pause(io, kPauseWithoutDescriptors);
                co_await pause.async_wait(asio::redirect_error(kAwaitable, failure));
            }
        }
    }

    Task<> Watch() {
        while (!shared.isStopping || !table.IsEmpty()) {
            tick.expires_after(kTick);
            boost::system::error_code ignored;
            co_await tick.async_wait(asio::redirect_error(kAwaitable, ignored));
            table.Check(Clock::now());
        }
    }

    void Stop() {
        shared.isStopping = true;
        boost::system::error_code ignored;
        // The listener's descriptor stays open, so shut it down: it must not queue clients.
        ::shutdown(acceptor.native_handle(), SHUT_RDWR);
        acceptor.close(ignored);
        table.Stop();
        tick.cancel();
    }

    const Listener& listener;
    Metrics& metrics;
    asio::io_context io{1};
    asio::thread_pool pool;
    Shared shared;
    ConnectionTable table;
    Acceptor acceptor;
    Timer tick;
};

HttpServer::HttpServer(const Listener& listener, const Limits& limits, TlsContext tls,
                       const HttpHandler& handler, Metrics& metrics)
    : state(std::make_unique<State>(listener, limits, std::move(tls), handler, metrics)) {}

HttpServer::~HttpServer() { state->pool.join(); }

void HttpServer::Run() { state->Run(); }

void HttpServer::Stop() {
    asio::post(state->io, [this] { state->Stop(); });
}

void HttpServer::UseTls(TlsContext tls) {
    asio::post(state->io,
               [this, tls = std::move(tls)]() mutable { state->shared.tls = std::move(tls); });
}

}  // namespace cimxml
