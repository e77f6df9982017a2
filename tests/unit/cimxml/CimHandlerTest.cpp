#include <cimxml/http/CimHandler.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "QuickHash.h"

namespace cimxml {
namespace {

constexpr const char* kRight = "Basic YW5uOnNlc2FtZQ==";  // ann:sesame
constexpr const char* kWrong = "Basic YW5uOlNlc2FtZQ==";  // ann:Sesame

class CimHandlerTest : public testing::Test {
protected:
    using Access = HttpHandler::Access;

    CimHandlerTest() { handler.UseAuthenticator(Users("sesame")); }

    static std::shared_ptr<const Authenticator> Users(const std::string& password) {
        return std::make_shared<Authenticator>(
            std::vector<User>{{"ann", HashLike(password, kQuickHash)}});
    }

    static HttpRequest Head(const std::string& authorization, const std::string& method = "POST",
                            const std::string& target = "/cimom") {
        Headers headers = {
            {"Host", "h"}, {"Content-Type", "application/xml"}, {"CIMOperation", "MethodCall"}};
        if (!authorization.empty()) headers.emplace_back("Authorization", authorization);
        return {method, target, false, headers, ""};
    }

    Access AccessOf(const std::string& authorization) {
        return handler.AccessOf(Head(authorization), client);
    }

    const Limits limits;
    const Operations operations{NameSpaces()};
    std::vector<std::string> logged;
    CimHandler handler{operations, limits,
                       [this](const std::string& line) { logged.push_back(line); },
                       [] { return std::string("numbers\n# EOF\n"); }};
    Client client{"192.0.2.1:40000", "", nullptr};
};

TEST_F(CimHandlerTest, RightPassword_IsJudgedOnce) {
    EXPECT_EQ(AccessOf(kRight), Access::MustAuthenticate);
    EXPECT_TRUE(handler.Authenticate(Head(kRight), client));
    EXPECT_EQ(AccessOf(kRight), Access::Granted);
    EXPECT_EQ(AccessOf(kWrong), Access::MustAuthenticate);
    EXPECT_EQ(AccessOf(""), Access::Refused);
    EXPECT_THAT(logged, testing::IsEmpty());
}

TEST_F(CimHandlerTest, NewUsers_AreAskedAnew) {
    EXPECT_TRUE(handler.Authenticate(Head(kRight), client));
    handler.UseAuthenticator(Users("other"));
    EXPECT_EQ(AccessOf(kRight), Access::MustAuthenticate);
    EXPECT_FALSE(handler.Authenticate(Head(kRight), client));
}

TEST_F(CimHandlerTest, WrongPassword_IsLogged) {
    EXPECT_FALSE(handler.Authenticate(Head(kWrong), client));
    EXPECT_THAT(logged,
                testing::ElementsAre("The user 'ann' at 192.0.2.1:40000 gave a wrong password."));
}

TEST_F(CimHandlerTest, ServerThatIsOpenToAll_AsksForNoPassword) {
    handler.UseAuthenticator(nullptr);
    EXPECT_EQ(AccessOf(""), Access::Granted);
}

TEST_F(CimHandlerTest, Health_IsToldToEverybody) {
    EXPECT_EQ(handler.AccessOf(Head("", "GET", "/healthz"), client), Access::Granted);
    EXPECT_EQ(handler.AnswerHead(Head("", "GET", "/healthz"))->body, "ok\n");
    EXPECT_EQ(handler.AnswerHead(Head("", "POST", "/healthz"))->status, 404);
}

TEST_F(CimHandlerTest, Metrics_AreForUsers) {
    EXPECT_EQ(handler.AccessOf(Head("", "GET", "/metrics"), client), Access::Refused);
    EXPECT_EQ(handler.AnswerHead(Head(kRight, "GET", "/metrics"))->body, "numbers\n# EOF\n");
    const CimHandler without(operations, limits, {});
    EXPECT_EQ(without.AnswerHead(Head(kRight, "GET", "/metrics"))->status, 404);
}

TEST_F(CimHandlerTest, Run_IsToldByItsHeader) {
    HttpRequest head = Head(kRight);
    EXPECT_FALSE(handler.IsRun(head));
    head.headers.emplace_back("CIMMethod", "Run%44iagnostic");
    EXPECT_TRUE(handler.IsRun(head));
    head.headers.back().second = "GetClass";
    EXPECT_FALSE(handler.IsRun(head));
}

}  // namespace
}  // namespace cimxml
