#include <arpa/inet.h>
#include <cimxml/http/HttpServer.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <atomic>
#include <future>
#include <thread>

namespace cimxml {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// Answers with the body that it got; a request for /wait waits until Release() is called.
class EchoHandler : public HttpHandler {
public:
    std::optional<HttpResponse> Refuse(const HttpRequest& head, Client&) const override {
        if (head.target == "/refused") return TextResponse(405, "Refused.");
        return std::nullopt;
    }

    HttpResponse Answer(const HttpRequest& request) const override {
        if (request.target == "/wait") {
            arrived.store(true);
            arrived.notify_all();
            released.wait(false);
        }
        return TextResponse(200, "Got " + request.body);
    }

    void AwaitArrival() const { arrived.wait(false); }

    void Release() {
        released.store(true);
        released.notify_all();
    }

private:
    mutable std::atomic<bool> arrived = false;
    std::atomic<bool> released = false;
};

// A client's end of a connection.
class Peer {
public:
    explicit Peer(const std::string& address) : socket(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in server{};
        server.sin_family = AF_INET;
        server.sin_port =
            htons(static_cast<std::uint16_t>(std::stoi(address.substr(address.rfind(':') + 1))));
        server.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const int failed =
            ::connect(socket.Get(), reinterpret_cast<sockaddr*>(&server), sizeof server);
        EXPECT_EQ(failed, 0);
    }

    void Send(const std::string& text) const {
        EXPECT_EQ(::send(socket.Get(), text.data(), text.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(text.size()));
    }

    // Everything until the server closes.
    std::string Rest() const {
        std::string all;
        char block[4096];
        for (ssize_t count = 0; (count = ::recv(socket.Get(), block, sizeof block, 0)) > 0;)
            all.append(block, static_cast<std::size_t>(count));
        return all;
    }

    // Until the text has come.
    std::string Until(const std::string& text) const {
        std::string all;
        char letter = 0;
        while (!all.ends_with(text) && ::recv(socket.Get(), &letter, 1, 0) == 1) all += letter;
        return all;
    }

private:
    const Descriptor socket;
};

std::string Post(const std::string& target, const std::string& body,
                 const std::string& headers = "") {
    return "POST " + target + " HTTP/1.1\r\nContent-Length: " + std::to_string(body.size()) +
           "\r\n" + headers + "\r\n" + body;
}

class HttpServerTest : public testing::Test {
protected:
    void Start(const Limits& chosen) {
        limits = chosen;
        listener.Listen();
        server.emplace(listener, limits, nullptr, handler, stop);
        running = std::thread([this] { server->Run(); });
    }

    // Ends the server and waits for the requests under way.
    void Finish() {
        stop.Set();
        if (running.joinable()) running.join();
        server.reset();
    }

    ~HttpServerTest() override {
        handler.Release();
        Finish();
    }

    Peer Connect() const { return Peer(listener.Address()); }

    Limits limits;
    Listener listener{"127.0.0.1:0"};
    StopSignal stop;
    EchoHandler handler;
    std::optional<HttpServer> server;
    std::thread running;
};

constexpr const char* kClose = "Connection: close\r\n";

TEST_F(HttpServerTest, RequestsOnOneConnection_AreAnsweredInTurn) {
    Start({});
    const Peer peer = Connect();
    peer.Send(Post("/", "one"));
    EXPECT_THAT(peer.Until("Got one\n"), StartsWith("HTTP/1.1 200 OK\r\n"));
    peer.Send(Post("/", "two") + Post("/", "three", kClose));
    EXPECT_THAT(peer.Until("Got two\n"), StartsWith("HTTP/1.1 200 OK\r\n"));
    EXPECT_THAT(peer.Rest(), HasSubstr("Connection: close\r\n\r\nGot three\n"));
}

TEST_F(HttpServerTest, ManyClientsAtOnce_EachGetTheirAnswers) {
    constexpr int kClients = 8;
    constexpr int kRequests = 200;
    Start({.maxConnections = kClients});
    const auto ask = [this](int client) {
        const Peer peer = Connect();
        int answered = 0;
        for (int number = 0; number < kRequests; ++number) {
            const std::string body = std::to_string(client) + "." + std::to_string(number);
            peer.Send(Post("/", body));
            const std::string end = "\r\n\r\nGot " + body + "\n";
            if (peer.Until(end).ends_with(end)) ++answered;
        }
        return answered;
    };
    std::vector<std::future<int>> clients;
    for (int client = 0; client < kClients; ++client)
        clients.push_back(std::async(std::launch::async, ask, client));
    for (auto& client : clients) EXPECT_EQ(client.get(), kRequests);
}

TEST_F(HttpServerTest, ClientThatAsksToGoOn_IsTold) {
    Start({});
    const Peer peer = Connect();
    peer.Send("POST / HTTP/1.1\r\nContent-Length: 2\r\nExpect: 100-continue\r\n\r\n");
    EXPECT_EQ(peer.Until("\r\n\r\n"), "HTTP/1.1 100 Continue\r\n\r\n");
    peer.Send("hi");
    EXPECT_THAT(peer.Until("Got hi\n"), StartsWith("HTTP/1.1 200 OK\r\n"));
}

TEST_F(HttpServerTest, OtherExpectation_Fails) {
    Start({});
    const Peer peer = Connect();
    peer.Send(Post("/", "", "Expect: miracles\r\n"));
    EXPECT_THAT(peer.Rest(), StartsWith("HTTP/1.1 417 Expectation Failed\r\n"));
}

TEST_F(HttpServerTest, RefusedRequest_IsNotReadAndEndsTheConnection) {
    Start({});
    const Peer peer = Connect();
    peer.Send(Post("/refused", std::string(100000, 'x')) + Post("/", "y"));
    const std::string answer = peer.Rest();
    EXPECT_THAT(answer, StartsWith("HTTP/1.1 405 Method Not Allowed\r\n"));
    EXPECT_THAT(answer, testing::EndsWith("Refused.\n"));
}

TEST_F(HttpServerTest, RequestThatTrickles_TimesOutAsAWhole) {
    Start({.requestTime = std::chrono::seconds(1)});
    const Peer slow = Connect();
    std::atomic<bool> isOver = false;
    // Each byte comes in time; all of them do not.
    std::thread trickle([&] {
        const std::string request = "POST / HTTP/1.1\r\nContent-Length: 100000\r\n\r\n";
        slow.Send(request);
        while (!isOver) {
            slow.Send("x");
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
    });
    EXPECT_THAT(slow.Until("\n\r\n"), StartsWith("HTTP/1.1 408 Request Timeout\r\n"));
    isOver = true;
    trickle.join();
    const Peer other = Connect();
    other.Send(Post("/", "still there", kClose));
    EXPECT_THAT(other.Rest(), HasSubstr("Got still there\n"));
}

TEST_F(HttpServerTest, SilentConnection_IsClosed) {
    Start({.idleTime = std::chrono::seconds(1)});
    EXPECT_EQ(Connect().Rest(), "");
}

TEST_F(HttpServerTest, ConnectionBeyondTheLimit_IsToldToComeBack) {
    Start({.maxConnections = 1});
    const Peer first = Connect();
    first.Send(Post("/wait", "first", kClose));
    handler.AwaitArrival();
    const std::string refused = Connect().Rest();
    EXPECT_THAT(refused, StartsWith("HTTP/1.1 503 Service Unavailable\r\n"));
    EXPECT_THAT(refused, HasSubstr("Retry-After: 1\r\n"));
    handler.Release();
    EXPECT_THAT(first.Rest(), HasSubstr("Got first\n"));
}

TEST_F(HttpServerTest, RequestUnderWay_IsAnsweredBeforeTheEnd) {
    Start({});
    const Peer idle = Connect();
    const Peer busy = Connect();
    busy.Send(Post("/wait", "last"));
    handler.AwaitArrival();
    stop.Set();
    EXPECT_EQ(idle.Rest(), "");
    handler.Release();
    EXPECT_THAT(busy.Rest(), HasSubstr("Connection: close\r\n\r\nGot last\n"));
    Finish();
}

TEST_F(HttpServerTest, UnusableAddress_IsNamed) {
    for (const char* address :
         {"", "127.0.0.1", "127.0.0.1:", "127.0.0.1:x", "127.0.0.1:70000", ":5988", "::1:5988"}) {
        try {
            const Listener unusable(address);
            ADD_FAILURE() << address;
        } catch (const SetupError& error) {
            EXPECT_EQ(error.what(), "The server cannot listen on '" + std::string(address) +
                                        "': it must have the form ADDRESS:PORT, as 127.0.0.1:5988 "
                                        "or [::1]:5988.");
        }
    }
}

TEST_F(HttpServerTest, AddressInUse_IsNamed) {
    listener.Listen();
    try {
        Listener second(listener.Address());
        second.Listen();
        ADD_FAILURE();
    } catch (const SetupError& error) {
        EXPECT_EQ(error.what(), "The server cannot listen on '" + listener.Address() +
                                    "': Address already in use.");
    }
}

TEST_F(HttpServerTest, Loopback_IsTold) {
    EXPECT_TRUE(listener.IsLoopback());
    for (const char* address : {"127.8.9.1:0", "localhost:0", "[::1]:0", "[::ffff:127.0.0.1]:0"})
        EXPECT_TRUE(Listener(address).IsLoopback()) << address;
    for (const char* address : {"0.0.0.0:0", "[::]:0", "192.0.2.1:80", "[2001:db8::1]:80"})
        EXPECT_FALSE(Listener(address).IsLoopback()) << address;
}

}  // namespace
}  // namespace cimxml
