#include <cimxml/net/RequestParser.h>
#include <gtest/gtest.h>
#include <mof/Names.h>

namespace cimxml {
namespace {

// Feeds a parser with so many bytes at a time.
class RequestParserTest : public testing::TestWithParam<std::size_t> {
protected:
    static constexpr const char* kLine = "POST / HTTP/1.1\r\n";

    // Takes a request from the front of `rest`; nothing when it is cut short.
    std::optional<HttpRequest> Take(bool hasBody = true) {
        RequestParser parser(limits);
        while (!parser.TakeHead(bytes))
            if (!Feed()) return std::nullopt;
        while (hasBody && !parser.TakeBody(bytes))
            if (!Feed()) return std::nullopt;
        return parser.Request();
    }

    // The body of the only request in the bytes.
    std::string Body(const std::string& headers, const std::string& body) {
        bytes.clear();
        rest = kLine + headers + "\r\n" + body;
        const auto request = Take();
        return request ? request->body : "cut short";
    }

    int StatusOf(const std::string& headers, const std::string& body) {
        try {
            Body(headers, body);
        } catch (const HttpError& error) {
            return error.status;
        }
        return 200;
    }

    int HeadStatus(const std::string& head) {
        bytes.clear();
        rest = head + "\r\n\r\n";
        try {
            return Take(false) ? 200 : 0;
        } catch (const HttpError& error) {
            return error.status;
        }
    }

    bool Feed() {
        const std::size_t count = std::min(GetParam(), rest.size());
        bytes += rest.substr(0, count);
        rest.erase(0, count);
        return count > 0;
    }

    Limits limits{.maxRequestSize = 20, .maxHeaderSize = 100};
    std::string rest;   // that the client has still to send
    std::string bytes;  // that have come
};

TEST_P(RequestParserTest, Head_IsRead) {
    rest = "POST /cimom HTTP/1.1\r\nHost: a:5988\r\nCIMOperation:MethodCall  \r\nX-Empty:\r\n\r\n";
    const auto request = Take(false);
    ASSERT_TRUE(request);
    EXPECT_EQ(request->method, "POST");
    EXPECT_EQ(request->target, "/cimom");
    EXPECT_FALSE(request->isVersion10);
    EXPECT_FALSE(request->isLast);
    EXPECT_EQ(*request->Header("HOST"), "a:5988");
    EXPECT_EQ(*request->Header("cimoperation"), "MethodCall");
    EXPECT_EQ(*request->Header("X-Empty"), "");
    EXPECT_EQ(request->Header("Y"), nullptr);
}

TEST_P(RequestParserTest, OldVersion_IsKnownAndEndsTheConnection) {
    rest = "M-POST /cimom HTTP/1.0\r\nConnection: keep-alive\r\n\r\n";
    const auto request = Take(false);
    ASSERT_TRUE(request);
    EXPECT_EQ(request->method, "M-POST");
    EXPECT_TRUE(request->isVersion10);
    EXPECT_TRUE(request->isLast);
}

TEST_P(RequestParserTest, ClientThatWantsToClose_IsHeard) {
    rest = "POST / HTTP/1.1\r\nConnection: Close\r\n\r\n";
    EXPECT_TRUE(Take(false)->isLast);
}

TEST_P(RequestParserTest, WhatHasNotTheForm_IsABadRequest) {
    EXPECT_EQ(HeadStatus("POST /cimom"), 400);
    EXPECT_EQ(HeadStatus("POST"), 400);
    EXPECT_EQ(HeadStatus("PO(ST /cimom HTTP/1.1"), 400);
    EXPECT_EQ(HeadStatus("POST /cimom XTTP/1.1"), 400);
    EXPECT_EQ(HeadStatus("POST /cimom HTTP/1.1\nHost:a"), 400);
    EXPECT_EQ(HeadStatus("POST /cimom HTTP/1."), 400);
    EXPECT_EQ(HeadStatus("POST /ci\rmom HTTP/1.1"), 400);
    EXPECT_EQ(HeadStatus("POST /cimom HTTP/1.1\r\nno colon"), 400);
    EXPECT_EQ(HeadStatus("POST /cimom HTTP/1.1\r\nHost : a"), 400);
    EXPECT_EQ(HeadStatus("POST /cimom HTTP/1.1\r\n folded: a"), 400);
    EXPECT_EQ(HeadStatus("POST /cimom HTTP/1.1\r\nA: b\r\n folded"), 400);
    EXPECT_EQ(HeadStatus("POST /cimom HTTP/1.1\r\nA: b\r\n\tfolded"), 400);
    EXPECT_EQ(HeadStatus("POST /cimom HTTP/1.1\r\nA: b\nC: d"), 400);
    EXPECT_EQ(HeadStatus("POST /cimom HTTP/1.1\r\nA: b\rC: d"), 400);
    EXPECT_EQ(HeadStatus(std::string("POST /cimom HTTP/1.1\r\nA: b\0c", 28)), 400);
}

TEST_P(RequestParserTest, HeaderThatMayStandOnce_IsRefusedWhenItStandsTwice) {
    for (const char* name : {"Host", "Content-Length", "Transfer-Encoding", "Authorization"}) {
        const std::string line = std::string("\r\n") + name + ": 1";
        EXPECT_EQ(HeadStatus("POST /cimom HTTP/1.1" + line), 200) << name;
        EXPECT_EQ(HeadStatus("POST /cimom HTTP/1.1" + line + mof::FoldedName(line)), 400) << name;
    }
    EXPECT_EQ(HeadStatus("POST /cimom HTTP/1.1\r\nAccept: a\r\nAccept: b"), 200);
}

TEST_P(RequestParserTest, OtherVersion_IsNotSupported) {
    EXPECT_EQ(HeadStatus("POST /cimom HTTP/2.0"), 505);
}

TEST_P(RequestParserTest, CountedBody_IsRead) {
    EXPECT_EQ(Body("Content-Length: 5\r\n", "hello and more"), "hello");
    EXPECT_EQ(Body("Content-Length: 0\r\n", ""), "");
}

TEST_P(RequestParserTest, ChunkedBody_IsRead) {
    EXPECT_EQ(Body("Transfer-Encoding: chunked\r\n",
                   "5\r\nhello\r\n1;note=x\r\n \r\nA\r\n0123456789\r\n0\r\nX-After: 1\r\n\r\n"),
              "hello 0123456789");
}

TEST_P(RequestParserTest, RequestsBehindEachOther_AreReadOneByOne) {
    rest = "POST /a HTTP/1.1\r\nContent-Length: 1\r\n\r\nx\r\nPOST /b HTTP/1.1\r\n\r\n";
    const auto first = Take();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->target, "/a");
    EXPECT_EQ(first->body, "x");
    EXPECT_EQ(Take(false)->target, "/b");
    EXPECT_FALSE(Take(false));
    EXPECT_EQ(bytes, "");
}

TEST_P(RequestParserTest, TooLargeBody_IsRefused) {
    EXPECT_EQ(StatusOf("Content-Length: 20\r\n", std::string(20, 'x')), 200);
    EXPECT_EQ(StatusOf("Content-Length: 21\r\n", ""), 413);
    EXPECT_EQ(StatusOf("Content-Length: 99999999999999999999\r\n", ""), 413);
    EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\n", "15\r\n"), 413);
    EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\n",
                       "14\r\n" + std::string(20, 'x') + "\r\n1\r\ny\r\n0\r\n\r\n"),
              413);
    EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\n", "fffffffffffffffff\r\n"), 400);
}

TEST_P(RequestParserTest, TooLargeHead_IsRefused) {
    EXPECT_EQ(StatusOf("A: " + std::string(100, 'x') + "\r\nContent-Length: 0\r\n", ""), 431);
    EXPECT_EQ(
        StatusOf("Transfer-Encoding: chunked\r\n",
                 "0\r\nA: " + std::string(60, 'x') + "\r\nB: " + std::string(60, 'x') + "\r\n\r\n"),
        431);
}

TEST_P(RequestParserTest, EmptyLinesBeforeTheRequest_AreReadWithinTheLimit) {
    rest = "\r\n\r\nPOST / HTTP/1.1\r\nContent-Length: 0\r\n\r\n";
    EXPECT_TRUE(Take());
    for (int line = 0; line < 100; ++line) rest += "\r\n";
    EXPECT_THROW(Take(), HttpError);
}

TEST_P(RequestParserTest, UnclearLength_IsRefused) {
    EXPECT_EQ(StatusOf("", ""), 411);
    EXPECT_EQ(StatusOf("Content-Length: 1\r\nContent-Length: 1\r\n", "x"), 400);
    EXPECT_EQ(StatusOf("Content-Length: 1, 1\r\n", "x"), 400);
    EXPECT_EQ(StatusOf("Content-Length: 1\r\nTransfer-Encoding: chunked\r\n", "x"), 400);
    EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\nContent-Length: 1\r\n", "x"), 400);
    EXPECT_EQ(StatusOf("Content-Length: -1\r\n", ""), 400);
    EXPECT_EQ(StatusOf("Content-Length: +1\r\n", ""), 400);
    EXPECT_EQ(StatusOf("Content-Length: \r\n", ""), 400);
    EXPECT_EQ(StatusOf("Transfer-Encoding: gzip\r\n", ""), 501);
    EXPECT_EQ(StatusOf("Transfer-Encoding: gzip, chunked\r\n", "0\r\n\r\n"), 501);
}

TEST_P(RequestParserTest, BrokenChunk_IsRefused) {
    EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\n", "x\r\n"), 400);
    EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\n", "1\r\nxyz\r\n"), 400);
    EXPECT_EQ(StatusOf("Transfer-Encoding: chunked\r\n", std::string(2000, '0')), 400);
}

TEST_P(RequestParserTest, RequestCutShort_IsNotComplete) {
    EXPECT_EQ(Body("Content-Length: 5\r\n", "hell"), "cut short");
    EXPECT_EQ(Body("Transfer-Encoding: chunked\r\n", "5\r\nhel"), "cut short");
    rest = "POST / HTTP";
    EXPECT_FALSE(Take());
}

INSTANTIATE_TEST_SUITE_P(BytesAtATime, RequestParserTest, testing::Values(1, 3, 4096));

}  // namespace
}  // namespace cimxml
