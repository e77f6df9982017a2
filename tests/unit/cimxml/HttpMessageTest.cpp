#include <cimxml/http/HttpMessage.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mof/Names.h>

namespace cimxml {
namespace {

int StatusOf(const std::string& head) {
    try {
        ParseHead(head);
    } catch (const HttpError& error) {
        return error.status;
    }
    return 200;
}

TEST(HttpMessage, Head_IsRead) {
    const HttpRequest request = ParseHead(
        "POST /cimom HTTP/1.1\r\nHost: a:5988\r\nCIMOperation:MethodCall  \r\nX-Empty:\r\n");
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.target, "/cimom");
    EXPECT_FALSE(request.isVersion10);
    EXPECT_EQ(*request.Header("HOST"), "a:5988");
    EXPECT_EQ(*request.Header("cimoperation"), "MethodCall");
    EXPECT_EQ(*request.Header("X-Empty"), "");
    EXPECT_EQ(request.Header("Y"), nullptr);
}

TEST(HttpMessage, OldVersion_IsKnown) {
    EXPECT_TRUE(ParseHead("M-POST /cimom HTTP/1.0\r\n").isVersion10);
}

TEST(HttpMessage, WhatHasNotTheForm_IsABadRequest) {
    EXPECT_EQ(StatusOf("POST /cimom"), 400);
    EXPECT_EQ(StatusOf("POST"), 400);
    EXPECT_EQ(StatusOf("PO(ST /cimom HTTP/1.1"), 400);
    EXPECT_EQ(StatusOf("POST /cimom XTTP/1.1"), 400);
    EXPECT_EQ(StatusOf("POST /cimom HTTP/1.1\nHost:a"), 400);
    EXPECT_EQ(StatusOf("POST /cimom HTTP/1."), 400);
    EXPECT_EQ(StatusOf("POST /ci\rmom HTTP/1.1"), 400);
    EXPECT_EQ(StatusOf("POST /cimom HTTP/1.1\r\nno colon"), 400);
    EXPECT_EQ(StatusOf("POST /cimom HTTP/1.1\r\nHost : a"), 400);
    EXPECT_EQ(StatusOf("POST /cimom HTTP/1.1\r\n folded: a"), 400);
    EXPECT_EQ(StatusOf("POST /cimom HTTP/1.1\r\nA: b\nC: d"), 400);
    EXPECT_EQ(StatusOf(std::string("POST /cimom HTTP/1.1\r\nA: b\0c", 28)), 400);
}

TEST(HttpMessage, HeaderThatMayStandOnce_IsRefusedWhenItStandsTwice) {
    for (const char* name : {"Host", "Content-Length", "Transfer-Encoding", "Authorization"}) {
        const std::string line = std::string("\r\n") + name + ": 1";
        EXPECT_EQ(StatusOf("POST /cimom HTTP/1.1" + line), 200);
        EXPECT_EQ(StatusOf("POST /cimom HTTP/1.1" + line + mof::FoldedName(line)), 400);
    }
    EXPECT_EQ(StatusOf("POST /cimom HTTP/1.1\r\nAccept: a\r\nAccept: b"), 200);
}

TEST(HttpMessage, OtherVersion_IsNotSupported) { EXPECT_EQ(StatusOf("POST /cimom HTTP/2.0"), 505); }

TEST(HttpMessage, Response_HasItsLength) {
    const std::string bytes = ToBytes({405, {{"Allow", "POST"}}, "no"}, true);
    EXPECT_TRUE(bytes.starts_with("HTTP/1.1 405 Method Not Allowed\r\nDate: "));
    EXPECT_TRUE(
        bytes.ends_with(" GMT\r\nAllow: POST\r\nContent-Length: 2\r\nConnection: close\r\n\r\nno"));
}

TEST(HttpMessage, ResponseThatIsNotTheLast_KeepsTheConnection) {
    EXPECT_EQ(ToBytes({200, {}, ""}, false).find("Connection"), std::string::npos);
}

TEST(HttpMessage, TextResponse_IsPlainText) {
    const HttpResponse response = TextResponse(404, "Nothing here.");
    EXPECT_EQ(response.body, "Nothing here.\n");
    EXPECT_EQ(response.headers.front().second, "text/plain; charset=utf-8");
}

}  // namespace
}  // namespace cimxml
