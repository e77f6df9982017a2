#include <cimxml/net/Connection.h>
#include <mof/Names.h>

#include <boost/asio/post.hpp>
#include <boost/asio/redirect_error.hpp>
#include <boost/asio/use_awaitable.hpp>
#include <boost/asio/write.hpp>
#include <exception>
#include <optional>

namespace cimxml {

namespace {

namespace asio = boost::asio;

constexpr asio::use_awaitable_t<Executor> kAwaitable;
constexpr std::chrono::seconds kShutdownTime{2};
constexpr std::size_t kMostDiscarded = std::size_t{4} << 20;  // bytes discarded before closing
constexpr std::size_t kTlsBlock = std::size_t{4} << 10;
constexpr int kRequestTimeout = 408;
constexpr int kExpectationFailed = 417;
constexpr int kUnavailable = 503;

using Failure = boost::system::error_code;

// The client has disconnected, or its connection was closed: no response is possible.
struct Disconnected {};
struct TimedOut {};

auto Into(Failure& failure) { return asio::redirect_error(kAwaitable, failure); }

std::string TextOf(const asio::ip::tcp::endpoint& client) {
    const std::string machine = client.address().to_string();
    return (client.address().is_v6() ? "[" + machine + "]" : machine) + ":" +
           std::to_string(client.port());
}

// The address without the part that a machine may choose freely: the lower half of an IPv6 address.
std::string MachineOf(const asio::ip::address& address) {
    if (!address.is_v6()) return address.to_string();
    auto bytes = address.to_v6().to_bytes();
    std::fill(bytes.begin() + bytes.size() / 2, bytes.end(), static_cast<unsigned char>(0));
    return asio::ip::address_v6(bytes).to_string();
}

}  // namespace

Connection::Connection(Socket itsSocket, Shared& itsShared)
    : socket(std::move(itsSocket)),
      timer(socket.get_executor()),
      shared(itsShared),
      tlsContext(itsShared.tls) {
    Failure ignored;  // of a client that is gone already, as the first read will tell
    socket.non_blocking(true, ignored);
    socket.set_option(asio::ip::tcp::no_delay(true), ignored);
    const auto endpoint = socket.remote_endpoint(ignored);
    client.address = TextOf(endpoint);
    machine = MachineOf(endpoint.address());
    waitingSince = accepted;
}

void Connection::Interrupt() {
    isTimedOut = true;
    deadline = Deadline::max();
    Failure ignored;
    socket.cancel(ignored);
    timer.cancel();
}

void Connection::CloseNow() {
    isClosed = true;
    Failure ignored;
    socket.close(ignored);
    timer.cancel();
}

bool Connection::HasEvent(short wanted) const {
    pollfd watched{const_cast<Socket&>(socket).native_handle(), wanted, 0};
    return ::poll(&watched, 1, 0) > 0;
}

void Connection::LimitTime(Deadline start, std::chrono::seconds time) {
    deadline = start + time;
    timeLimit = time;
}

std::chrono::seconds Connection::FirstTime() const {
    return std::min(shared.limits.firstRequestTime, shared.limits.requestTime);
}

// Runs the work in the thread pool.
template <class Work>
auto Connection::OnPool(Work work) -> Task<std::invoke_result_t<Work>> {
    std::optional<std::invoke_result_t<Work>> result;
    std::exception_ptr failure;
    const std::function<void()> job = [&] {
        try {
            result = work();
        } catch (...) {
            failure = std::current_exception();
        }
    };
    deadline = Deadline::max();
    auto begin = [](auto handler, asio::thread_pool* pool, const std::function<void()>* todo) {
        asio::post(*pool, [handler = std::move(handler), todo]() mutable {
            (*todo)();
            const auto executor = asio::get_associated_executor(handler);
            asio::post(executor, std::move(handler));
        });
    };
    co_await asio::async_initiate<const asio::use_awaitable_t<Executor>&, void()>(
        begin, kAwaitable, &shared.pool, &job);
    if (failure) std::rethrow_exception(failure);
    co_return std::move(*result);
}

Task<> Connection::Serve() {
    co_await Handshake();
    bool goesOn = true;
    while (goesOn) {
        std::optional<HttpResponse> refusal;
        try {
            goesOn = co_await ServeOne();
        } catch (const HttpError& error) {
            refusal = TextResponse(error.status, error.what());
        } catch (const TimedOut&) {
            goesOn = false;
            if (hasBegun)
                refusal =
                    TextResponse(kRequestTimeout, "The request did not arrive within " +
                                                      std::to_string(timeLimit.count()) + " s.");
        }
        if (!refusal) continue;
        co_await Respond(std::move(*refusal), true);
        goesOn = false;
    }
    co_await Finish();
}

Task<> Connection::Refuse() {
    LimitTime(Clock::now(), kShutdownTime);
    co_await Handshake();
    HttpResponse response = TextResponse(
        kUnavailable, "The server has as many connections as it takes. Try again later.");
    response.headers.emplace_back("Retry-After", "1");
    co_await Respond(std::move(response), true);
    co_await Finish();
}

Task<> Connection::Handshake() {
    if (!tlsContext) co_return;
    if (deadline == Deadline::max()) LimitTime(accepted, FirstTime());
    Failure failure;
    // An idle client costs no more than its socket.
    co_await socket.async_wait(Socket::wait_read, Into(failure));
    if (!failure) {
        tls = std::make_unique<asio::ssl::stream<Socket&>>(socket, *tlsContext);
        co_await tls->async_handshake(asio::ssl::stream_base::server, Into(failure));
    }
    if (failure) throw Disconnected();
}

// False when the connection is to end.
Task<bool> Connection::ServeOne() {
    if (shared.isStopping && bytes.empty()) co_return false;
    parser = std::make_unique<RequestParser>(shared.limits);
    co_await ReadHead();
    HttpRequest& request = parser->Request();
    const bool isAuthorized = co_await Authorize(request);
    if (!isAuthorized) co_return false;
    if (const std::string* const expected = request.Header("Expect"))
        co_await Send100Continue(*expected);
    while (!parser->TakeBody(bytes)) co_await ReadMore();
    co_return co_await Answer(request);
}

Task<> Connection::ReadHead() {
    const Clock::time_point start = isFirst ? accepted : Clock::now();
    hasBegun = !bytes.empty();
    begun = Clock::now();
    isWaiting = true;
    waitingSince = start;
    if (isFirst)
        LimitTime(start, std::min(FirstTime(), shared.limits.idleTime));
    else
        LimitTime(start, hasBegun ? shared.limits.requestTime : shared.limits.idleTime);
    while (!parser->TakeHead(bytes)) {
        co_await ReadMore();
        if (hasBegun) continue;
        hasBegun = true;
        begun = Clock::now();
        LimitTime(isFirst ? start : begun, isFirst ? FirstTime() : shared.limits.requestTime);
    }
}

// Checks credentials and headers; false when the request has been refused.
Task<bool> Connection::Authorize(const HttpRequest& head) {
    auto access = shared.handler.AccessOf(head, client);
    if (access == HttpHandler::Access::MustAuthenticate) {
        const bool isRight = co_await Authenticate(head);
        access = isRight ? HttpHandler::Access::Granted : HttpHandler::Access::Refused;
    }
    std::optional<HttpResponse> refusal;
    if (access == HttpHandler::Access::Refused)
        refusal = shared.handler.Unauthorized();
    else
        refusal = shared.handler.AnswerHead(head);
    if (refusal) {
        if (head.method == "HEAD") refusal->body.clear();
        co_await Respond(std::move(*refusal), true);
        co_return false;
    }
    isWaiting = false;
    isFirst = false;
    LimitTime(begun, shared.limits.requestTime);
    co_return true;
}

Task<bool> Connection::Authenticate(const HttpRequest& head) {
    const Clock::time_point start = Clock::now();
    Turns::Ticket ticket;
    const bool hasTurn = co_await AwaitTurn(shared.hashes, ticket, Deadline::max());
    if (!hasTurn) throw Disconnected();
    bool isRight = false;
    {
        const Turns::Holder turn(shared.hashes);
        isRight = co_await OnPool([&] { return shared.handler.Authenticate(head, client); });
    }
    if (isClosed) throw Disconnected();
    begun += Clock::now() - start;
    if (!isRight) {
        ++shared.metrics.wrongPasswords;
        co_await Pause(shared.limits.failurePause);
    }
    co_return isRight;
}

// Waits, but no longer than until the server stops.
Task<> Connection::Pause(std::chrono::seconds time) {
    if (shared.isStopping) co_return;
    isPausing = true;
    timer.expires_after(time);
    Failure ignored;
    co_await timer.async_wait(Into(ignored));
    isPausing = false;
    isTimedOut = false;
    if (isClosed) throw Disconnected();
}

// True if the connection's turn comes before the timeout and before it is interrupted.
Task<bool> Connection::AwaitTurn(Turns& turns, Turns::Ticket& ticket, Deadline end) {
    ticket.wake = [this] { timer.cancel(); };
    deadline = Deadline::max();
    if (turns.Ask(ticket)) co_return true;
    timer.expires_at(end);
    Failure ignored;
    co_await timer.async_wait(Into(ignored));
    isTimedOut = false;
    if (!ticket.hasTurn) turns.Leave(ticket);
    co_return ticket.hasTurn;
}

Task<> Connection::Send100Continue(const std::string& expected) {
    if (!mof::SameName(expected, "100-continue"))
        throw HttpError(kExpectationFailed,
                        "This server cannot meet the expectation '" + expected + "'.");
    // A braced temporary behind co_await is destroyed twice by GCC 12.
    Outgoing encouragement;
    encouragement.head = "HTTP/1.1 100 Continue\r\n\r\n";
    co_await Send(std::move(encouragement));
    LimitTime(begun, shared.limits.requestTime);
}

// False when the connection is to end.
Task<bool> Connection::Answer(const HttpRequest& request) {
    if (shared.handler.IsRun(request)) {
        HttpResponse response = co_await AnswerRun(request);
        const bool isLast = request.isLast || shared.isStopping;
        co_await Respond(std::move(response), isLast);
        co_return !isLast;
    }
    // The first write happens on the pool's thread, which saves a thread switch and so latency.
    Outgoing outgoing = co_await OnPool([&] {
        HttpResponse response = shared.handler.Answer(request);
        Outgoing made = Packed(std::move(response), request.isLast || shared.isStopping);
        SendAtOnce(made);
        return made;
    });
    const bool isLast = outgoing.isLast;
    co_await Send(std::move(outgoing));
    co_return !isLast;
}

Task<HttpResponse> Connection::AnswerRun(const HttpRequest& request) {
    Turns::Ticket ticket;
    const bool mayRun = co_await AwaitRun(ticket);
    std::optional<Turns::Holder> turn;
    if (ticket.hasTurn) turn.emplace(shared.runs);
    if (!mayRun) {
        ++shared.metrics.runsRefused;
        co_return co_await OnPool([&] { return shared.handler.RefuseRun(request); });
    }
    ++shared.metrics.runsUnderWay;
    HttpResponse response = co_await OnPool([&] { return shared.handler.Answer(request); });
    --shared.metrics.runsUnderWay;
    ++shared.metrics.runs;
    co_return response;
}

// True when the run may begin. Throws Disconnected if the client left while it waited.
Task<bool> Connection::AwaitRun(Turns::Ticket& ticket) {
    if (shared.runs.IsFree()) co_return shared.runs.Ask(ticket);
    waitsForRun = true;
    isPausing = true;
    ++shared.metrics.runsWaiting;
    co_await AwaitTurn(shared.runs, ticket, Clock::now() + shared.limits.runWait);
    --shared.metrics.runsWaiting;
    isPausing = false;
    waitsForRun = false;
    if (!HasDisconnected()) co_return ticket.hasTurn && !shared.isStopping;
    if (ticket.hasTurn) shared.runs.End();
    throw Disconnected();
}

// Reads more bytes.
Task<> Connection::ReadMore() {
    Failure failure;
    std::size_t count = 0;
    if (tls) {
        const std::size_t used = bytes.size();
        bytes.resize(used + kTlsBlock);
        count = co_await tls->async_read_some(asio::buffer(bytes.data() + used, kTlsBlock),
                                              Into(failure));
        bytes.resize(used + count);
    } else {
        // Waiting needs no buffer, and all connections read into a shared one.
        co_await socket.async_wait(Socket::wait_read, Into(failure));
        if (!failure) count = socket.read_some(asio::buffer(shared.block), failure);
        if (failure == asio::error::would_block) failure.clear();
        bytes.append(shared.block.data(), count);
    }
    // If the client sends without a pause, reading never blocks.
    if (!isClosed && (isTimedOut || Clock::now() >= deadline)) {
        isTimedOut = false;
        throw TimedOut();
    }
    if (failure) throw Disconnected();
}

Connection::Outgoing Connection::Packed(HttpResponse response, bool isLast) const {
    std::string head = HeadOf(response, isLast);
    if (tls) head += response.body;  // so that both go in one TLS record
    return {std::move(head), tls ? "" : std::move(response.body), response.status, isLast};
}

Task<> Connection::Respond(HttpResponse response, bool isLast) {
    Outgoing outgoing = Packed(std::move(response), isLast);
    co_await Send(std::move(outgoing));
}

// Sends what the socket takes without blocking. Runs on whichever thread has the connection.
void Connection::SendAtOnce(Outgoing& outgoing) {
    if (tls) return;
    const std::array<asio::const_buffer, 2> parts = {asio::buffer(outgoing.head),
                                                     asio::buffer(outgoing.body)};
    outgoing.sent = socket.write_some(parts, outgoing.failure);
    if (outgoing.failure == asio::error::would_block) outgoing.failure.clear();
}

// Sends the rest.
Task<> Connection::Send(Outgoing outgoing) {
    if (outgoing.status != 0) shared.metrics.CountRequest(outgoing.status);
    LimitTime(Clock::now(), shared.limits.requestTime);
    if (outgoing.sent == 0 && !outgoing.failure) SendAtOnce(outgoing);
    Failure failure = outgoing.failure;
    if (!failure && tls) {
        co_await asio::async_write(*tls, asio::buffer(outgoing.head), Into(failure));
    } else if (!failure && outgoing.sent < outgoing.head.size() + outgoing.body.size()) {
        std::array<asio::const_buffer, 2> parts = {asio::buffer(outgoing.head),
                                                   asio::buffer(outgoing.body)};
        for (auto& part : parts) {
            const std::size_t gone = std::min(outgoing.sent, part.size());
            part += gone;
            outgoing.sent -= gone;
        }
        co_await asio::async_write(socket, parts, Into(failure));
    }
    if (failure || isTimedOut) throw Disconnected();
}

// Shuts the connection down and discards further input until the client closes: closing with unread
// bytes resets the connection, and the client would lose the answer.
Task<> Connection::Finish() {
    isWaiting = true;
    waitingSince = Clock::now();
    LimitTime(waitingSince, kShutdownTime);
    hasBegun = true;
    Failure failure;
    if (tls) co_await tls->async_shutdown(Into(failure));
    socket.shutdown(Socket::shutdown_send, failure);
    std::size_t total = 0;
    while (!isTimedOut && total < kMostDiscarded) {
        co_await socket.async_wait(Socket::wait_read, Into(failure));
        if (failure) break;
        total += socket.read_some(asio::buffer(shared.block), failure);
        if (failure && failure != asio::error::would_block) break;
    }
}

}  // namespace cimxml
