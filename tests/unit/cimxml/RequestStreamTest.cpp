#include <cimxml/http/RequestStream.h>
#include <gtest/gtest.h>

#include "ScriptedStream.h"

namespace cimxml {
namespace {

constexpr Deadline kAnyTime = Deadline::max();

class RequestStreamTest : public testing::TestWithParam<std::size_t> {
protected:
    Limits limits{.maxRequestSize = 20, .maxHeaderSize = 100};

    // The body of the only request in the bytes.
    std::string Body(const std::string& headers, const std::string& rest) {
        ScriptedStream stream("POST / HTTP/1.1\r\n" + headers + "\r\n" + rest, GetParam());
        RequestStream requests(stream, limits);
        auto request = requests.ReadHead(kAnyTime);
        requests.ReadBody(*request, kAnyTime);
        return request->body;
    }

    int StatusOf(const std::string& headers, const std::string& rest) {
        try {
            Body(headers, rest);
        } catch (const HttpError& error) {
            return error.status;
        }
        return 200;
    }
};

TEST_P(RequestStreamTest, CountedBody_IsRead) {
    EXPECT_EQ(Body("Content-Length: 5\r\n", "hello and more"), "hello");
    EXPECT_EQ(Body("Content-Length: 0\r\n", ""), "");
}

TEST_P(RequestStreamTest, ChunkedBody_IsRead) {
    EXPECT_EQ(Body("Transfer-Encoding: chunked\r\n",
                   "5\r\nhello\r\n1;note=x\r\n \r\nA\r\n0123456789\r\n0\r\nX-After: 1\r\n\r\n"),
              "hello 0123456789");
}

TEST_P(RequestStreamTest, RequestsBehindEachOther_AreReadOneByOne) {
    ScriptedStream stream(
        "POST /a HTTP/1.1\r\nContent-Length: 1\r\n\r\nx\r\nPOST /b HTTP/1.1\r\n\r\n", GetParam());
    RequestStream requests(stream, limits);
    auto first = requests.ReadHead(kAnyTime);
    requests.ReadBody(*first, kAnyTime);
    EXPECT_EQ(first->target, "/a");
    EXPECT_EQ(first->body, "x");
    EXPECT_EQ(requests.ReadHead(kAnyTime)->target, "/b");
    EXPECT_FALSE(requests.ReadHead(kAnyTime));
    EXPECT_FALSE(requests.HasBytes());
}

TEST_P(RequestStreamTest, TooLargeBody_IsRefused) {
    EXPECT_EQ(StatusOf("Content-Length: 20\r\n", std::string(20, 'x')), 200);
    EXPECT_EQ(StatusOf("Content-Length: 21\r\n", ""), 413);
    EXPECT_EQ(StatusOf("Content-Length: 99999999999999999999\r\n", ""), 413);
    EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\n", "15\r\n"), 413);
    EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\n",
                       "14\r\n" + std::string(20, 'x') + "\r\n1\r\ny\r\n0\r\n\r\n"),
              413);
    EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\n", "fffffffffffffffff\r\n"), 400);
}

TEST_P(RequestStreamTest, TooLargeHead_IsRefused) {
    EXPECT_EQ(StatusOf("A: " + std::string(100, 'x') + "\r\nContent-Length: 0\r\n", ""), 431);
    EXPECT_EQ(
        StatusOf("Transfer-Encoding: chunked\r\n",
                 "0\r\nA: " + std::string(60, 'x') + "\r\nB: " + std::string(60, 'x') + "\r\n\r\n"),
        431);
}

TEST_P(RequestStreamTest, UnknownLength_IsRefused) {
    EXPECT_EQ(StatusOf("", ""), 411);
    EXPECT_EQ(StatusOf("Content-Length: 1\r\nContent-Length: 1\r\n", "x"), 400);
    EXPECT_EQ(StatusOf("Content-Length: 1\r\nTransfer-Encoding: chunked\r\n", "x"), 400);
    EXPECT_EQ(StatusOf("Content-Length: -1\r\n", ""), 400);
    EXPECT_EQ(StatusOf("Content-Length: \r\n", ""), 400);
    EXPECT_EQ(StatusOf("Transfer-Encoding: gzip\r\n", ""), 501);
}

TEST_P(RequestStreamTest, BrokenChunk_IsRefused) {
    EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\n", "x\r\n"), 400);
    EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\n", "1\r\nxyz\r\n"), 400);
    EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\n", std::string(2000, '0')), 400);
}

TEST_P(RequestStreamTest, RequestCutShort_LosesTheConnection) {
    EXPECT_THROW(Body("Content-Length: 5\r\n", "hell"), ConnectionLost);
    EXPECT_THROW(Body("Transfer-Encoding: chunked\r\n", "5\r\nhel"), ConnectionLost);
    ScriptedStream stream("POST / HTTP", GetParam());
    RequestStream requests(stream, limits);
    EXPECT_THROW(requests.ReadHead(kAnyTime), ConnectionLost);
}

TEST_P(RequestStreamTest, ClientThatNeverPauses_TimesOutAllTheSame) {
    const Deadline passed = Clock::now();
    ScriptedStream empty(std::string(1000, '\n'), GetParam());
    EXPECT_THROW(RequestStream(empty, limits).ReadHead(passed), TimedOut);
    ScriptedStream chunks("0\r\n\r\n", GetParam());
    HttpRequest request{"POST", "/", false, {{"Transfer-Encoding", "chunked"}}};
    EXPECT_THROW(RequestStream(chunks, limits).ReadBody(request, passed), TimedOut);
}

INSTANTIATE_TEST_SUITE_P(BytesAtATime, RequestStreamTest, testing::Values(1, 3, 4096));

}  // namespace
}  // namespace cimxml
