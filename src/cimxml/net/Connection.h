// One connection: its requests are read, checked and answered in turn.
#pragma once

#include <cimxml/load/Metrics.h>
#include <cimxml/load/Turns.h>
#include <cimxml/net/ConnectionTable.h>
#include <cimxml/net/HttpHandler.h>
#include <cimxml/net/Limits.h>
#include <cimxml/net/RequestParser.h>
#include <cimxml/net/Tls.h>
#include <poll.h>

#include <array>
#include <atomic>
#include <boost/asio/awaitable.hpp>
#include <boost/asio/basic_stream_socket.hpp>
#include <boost/asio/basic_waitable_timer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ssl/stream.hpp>
#include <boost/asio/thread_pool.hpp>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>  // which Asio lacks

namespace cimxml {

using Executor = boost::asio::io_context::executor_type;
using Socket = boost::asio::basic_stream_socket<boost::asio::ip::tcp, Executor>;
using Timer = boost::asio::basic_waitable_timer<Clock, boost::asio::wait_traits<Clock>, Executor>;
template <class Result = void>
using Task = boost::asio::awaitable<Result, Executor>;

// State shared by a server's connections. Used by the server's one thread, except the thread pool.
struct Shared {
    const Limits& limits;
    const HttpHandler& handler;
    Metrics& metrics;
    boost::asio::thread_pool& pool;
    TlsContext tls;
    Turns hashes;
    Turns runs;
    std::atomic<bool> isStopping = false;             // also read in the thread pool
    std::array<char, std::size_t{64} << 10> block{};  // a shared read buffer
};

class Connection : public Guest {
public:
    Connection(Socket accepted, Shared& itsShared);

    // Serves the connection to its end.
    Task<> Serve();
    // Answers 503 and closes the connection.
    Task<> Refuse();

    void Interrupt() override;
    void CloseNow() override;
    bool HasUnread() const override { return HasEvent(POLLIN); }
    bool HasDisconnected() const override { return isClosed || HasEvent(POLLRDHUP); }

private:
    Task<> Handshake();
    Task<bool> ServeOne();
    Task<> ReadHead();
    Task<bool> Authorize(const HttpRequest& head);
    Task<bool> Authenticate(const HttpRequest& head);
    Task<> Send100Continue(const std::string& expected);
    Task<bool> Answer(const HttpRequest& request);
    Task<HttpResponse> AnswerRun(const HttpRequest& request);
    Task<bool> AwaitTurn(Turns& turns, Turns::Ticket& ticket, Deadline end);
    Task<bool> AwaitRun(Turns::Ticket& ticket);
    Task<> ReadMore();
    // Bytes for the client, and how many of them have been sent.
    struct Outgoing {
        std::string head;
        std::string body = {};
        int status = 0;  // 0: no response
        bool isLast = false;
        std::size_t sent = 0;
        boost::system::error_code failure = {};
    };
    Outgoing Packed(HttpResponse response, bool isLast) const;
    Task<> Respond(HttpResponse response, bool isLast);
    void SendAtOnce(Outgoing& outgoing);
    Task<> Send(Outgoing outgoing);
    Task<> Finish();
    Task<> Pause(std::chrono::seconds time);
    template <class Work>
    Task<std::invoke_result_t<Work>> OnPool(Work work);

    bool HasEvent(short wanted) const;
    void LimitTime(Deadline start, std::chrono::seconds time);
    std::chrono::seconds FirstTime() const;

    Socket socket;
    Timer timer;
    Shared& shared;
    Client client;
    TlsContext tlsContext;  // outlives the stream, also when the server has a new one
    std::unique_ptr<boost::asio::ssl::stream<Socket&>> tls;
    std::unique_ptr<RequestParser> parser;
    std::string bytes;  // read, not yet used
    const Clock::time_point accepted = Clock::now();
    Clock::time_point begun{};         // when the request's first byte came, without waits of ours
    std::chrono::seconds timeLimit{};  // behind `deadline`
    bool isFirst = true;
    bool isTimedOut = false;
    bool isClosed = false;
};

}  // namespace cimxml
