#include <cimxml/net/HttpServer.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <list>
#include <thread>

#include "Peer.h"

namespace cimxml {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// Answers with the body that it got; a request for /wait waits until Release() is called.
class EchoHandler : public HttpHandler {
public:
    Access AccessOf(const HttpRequest& head, const Client&) const override {
        return head.Header("Authorization") ? Access::MustAuthenticate : Access::Granted;
    }

    bool Authenticate(const HttpRequest& head, Client&) const override {
        ++judged;
        judged.notify_all();
        if (head.target == "/wait") released.wait(false);
        return *head.Header("Authorization") == "right";
    }

    HttpResponse Unauthorized() const override { return TextResponse(401, "Wrong."); }

    std::optional<HttpResponse> AnswerHead(const HttpRequest& head) const override {
        if (head.target == "/refused") return TextResponse(405, "Refused.");
        return std::nullopt;
    }

    bool IsRun(const HttpRequest& request) const override { return request.Header("Run"); }

    HttpResponse RefuseRun(const HttpRequest&) const override { return TextResponse(200, "Busy"); }

    HttpResponse Answer(const HttpRequest& request) const override {
        if (request.target == "/wait") {
            arrived.store(true);
            arrived.notify_all();
            released.wait(false);
        }
        ++answered;
        return TextResponse(200, "Got " + request.body);
    }

    void AwaitArrival() const { arrived.wait(false); }

    void AwaitJudged(int count) const {
        for (int seen = judged; seen < count; seen = judged) judged.wait(seen);
    }

    int Judged() const { return judged; }

    void Release() {
        released.store(true);
        released.notify_all();
    }

    mutable std::atomic<int> answered = 0;

private:
    mutable std::atomic<int> judged = 0;
    mutable std::atomic<bool> arrived = false;
    std::atomic<bool> released = false;
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
        server.emplace(listener, limits, nullptr, handler, metrics);
        running = std::thread([this] { server->Run(); });
    }

    // Ends the server and waits for the requests under way.
    void Finish() {
        if (server) server->Stop();
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
    Metrics metrics;
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

TEST_F(HttpServerTest, ManySilentConnections_MakeRoomForNewOnes) {
    Start({.maxConnections = 4});
    std::list<Peer> silent;
    for (int number = 0; number < 20; ++number) silent.emplace_back(listener.Address());
    const Peer honest = Connect();
    honest.Send(Post("/", "hello", kClose));
    EXPECT_THAT(honest.Rest(), HasSubstr("Got hello\n"));
    EXPECT_EQ(silent.front().Rest(), "");
    EXPECT_GE(metrics.connectionsDisplaced, 16U);
}

TEST_F(HttpServerTest, ConnectionsOfOneAddress_AreLimited) {
    Start({.maxConnectionsPerAddress = 1});
    const Peer first = Connect();
    first.Send(Post("/wait", "first", kClose));
    handler.AwaitArrival();
    EXPECT_THAT(Connect().Rest(), StartsWith("HTTP/1.1 503 Service Unavailable\r\n"));
    handler.Release();
    EXPECT_THAT(first.Rest(), HasSubstr("Got first\n"));
}

TEST_F(HttpServerTest, FirstRequestThatDoesNotCome_TimesOut) {
    Start({.firstRequestTime = std::chrono::seconds(1)});
    const Peer slow = Connect();
    slow.Send("POST / HTTP/1.1\r\n");
    EXPECT_THAT(slow.Rest(), HasSubstr("The request did not arrive within 1 s.\n"));
    EXPECT_EQ(Connect().Rest(), "");
}

TEST_F(HttpServerTest, WrongPassword_IsAnsweredAfterAPauseThatEndsWithTheServer) {
    Start({.failurePause = std::chrono::hours(1)});
    const Peer peer = Connect();
    peer.Send(Post("/", "x", "Authorization: wrong\r\n"));
    handler.AwaitJudged(1);
    while (metrics.wrongPasswords == 0) std::this_thread::yield();
    EXPECT_EQ(metrics.requests[401], 0U);
    server->Stop();
    EXPECT_THAT(peer.Rest(), StartsWith("HTTP/1.1 401 Unauthorized\r\n"));
}

TEST_F(HttpServerTest, Passwords_AreJudgedTwoAtATime) {
    Start({});
    std::list<Peer> peers;
    for (int number = 0; number < 6; ++number) {
        peers.emplace_back(listener.Address());
        peers.back().Send(Post("/wait", "x", std::string("Authorization: right\r\n") + kClose));
    }
    handler.AwaitJudged(2);
    const Peer other = Connect();
    other.Send(Post("/", "y", kClose));
    EXPECT_THAT(other.Rest(), HasSubstr("Got y\n"));
    EXPECT_EQ(handler.Judged(), 2);
    handler.Release();
    for (const Peer& peer : peers) EXPECT_THAT(peer.Rest(), HasSubstr("Got x\n"));
    EXPECT_EQ(handler.Judged(), 6);
}

TEST_F(HttpServerTest, RunThatComesDuringARun_WaitsForItsTurn) {
    Start({});
    const Peer first = Connect();
    first.Send(Post("/wait", "first", "Run: 1\r\n"));
    handler.AwaitArrival();
    const Peer second = Connect();
    second.Send(Post("/", "second", std::string("Run: 1\r\n") + kClose));
    while (metrics.runsWaiting == 0) std::this_thread::yield();
    const Peer reader = Connect();
    reader.Send(Post("/", "reader", kClose));
    EXPECT_THAT(reader.Rest(), HasSubstr("Got reader\n"));
    EXPECT_EQ(handler.answered, 1);
    handler.Release();
    EXPECT_THAT(second.Rest(), HasSubstr("Got second\n"));
    EXPECT_EQ(metrics.runs, 2U);
}

TEST_F(HttpServerTest, RunWhoseTurnDoesNotCome_IsRefused) {
    Start({.runWait = std::chrono::seconds(1)});
    const Peer first = Connect();
    first.Send(Post("/wait", "first", "Run: 1\r\n"));
    handler.AwaitArrival();
    const Peer second = Connect();
    second.Send(Post("/", "second", std::string("Run: 1\r\n") + kClose));
    EXPECT_THAT(second.Rest(), HasSubstr("Busy\n"));
    EXPECT_EQ(metrics.runsRefused, 1U);
    handler.Release();
    EXPECT_THAT(first.Until("Got first\n"), StartsWith("HTTP/1.1 200 OK\r\n"));
}

TEST_F(HttpServerTest, ClientThatHasGone_LeavesNoRunBehind) {
    Start({});
    const Peer first = Connect();
    first.Send(Post("/wait", "first", std::string("Run: 1\r\n") + kClose));
    handler.AwaitArrival();
    {
        const Peer second = Connect();
        second.Send(Post("/", "second", "Run: 1\r\n"));
        while (metrics.runsWaiting == 0) std::this_thread::yield();
    }
    handler.Release();
    EXPECT_THAT(first.Rest(), HasSubstr("Got first\n"));
    Finish();
    EXPECT_EQ(handler.answered, 1);
    EXPECT_EQ(metrics.runs, 1U);
}

TEST_F(HttpServerTest, RequestUnderWay_IsAnsweredBeforeTheEnd) {
    Start({});
    const Peer idle = Connect();
    const Peer busy = Connect();
    busy.Send(Post("/wait", "last"));
    handler.AwaitArrival();
    server->Stop();
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
