#include <cimxml/net/HttpMessage.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace cimxml {
namespace {

TEST(HttpMessage, Response_HasItsLength) {
    const std::string head = HeadOf({405, {{"Allow", "POST"}}, "no"}, true);
    EXPECT_TRUE(head.starts_with("HTTP/1.1 405 Method Not Allowed\r\nDate: "));
    EXPECT_TRUE(
        head.ends_with(" GMT\r\nAllow: POST\r\nContent-Length: 2\r\nConnection: close\r\n\r\n"));
}

TEST(HttpMessage, ResponseThatIsNotTheLast_KeepsTheConnection) {
    EXPECT_EQ(HeadOf({200, {}, ""}, false).find("Connection"), std::string::npos);
}

TEST(HttpMessage, TextResponse_IsPlainText) {
    const HttpResponse response = TextResponse(404, "Nothing here.");
    EXPECT_EQ(response.body, "Nothing here.\n");
    EXPECT_EQ(response.headers.front().second, "text/plain; charset=utf-8");
}

}  // namespace
}  // namespace cimxml
