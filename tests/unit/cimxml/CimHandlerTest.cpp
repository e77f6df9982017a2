#include <cimxml/http/CimHandler.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>

#include "QuickHash.h"

namespace cimxml {
namespace {

using std::chrono_literals::operator""h;
using std::chrono_literals::operator""ms;

constexpr const char* kRight = "Basic YW5uOnNlc2FtZQ==";  // ann:sesame
constexpr const char* kWrong = "Basic YW5uOlNlc2FtZQ==";  // ann:Sesame

class CimHandlerTest : public testing::Test {
protected:
    static HttpRequest Head(const std::string& authorization) {
        Headers headers = {
            {"Host", "h"}, {"Content-Type", "application/xml"}, {"CIMOperation", "MethodCall"}};
        if (!authorization.empty()) headers.emplace_back("Authorization", authorization);
        return {"POST", "/cimom", false, headers, ""};
    }

    // The status of the refusal; 0 when the request may go on.
    int Refusal(const std::string& authorization) {
        const auto refusal = handler.Refuse(Head(authorization), client);
        return refusal ? refusal->status : 0;
    }

    const Limits limits{.failurePause = 1h};  // which no test waits for
    const Operations operations{NameSpaces()};
    const Authenticator authenticator{{{"ann", HashLike("sesame", kQuickHash)}}};
    StopSignal stop;
    std::promise<std::string> logged;
    const CimHandler handler{operations, limits, &authenticator, stop,
                             [this](const std::string& line) { logged.set_value(line); }};
    Client client{"192.0.2.1:40000", ""};
};

TEST_F(CimHandlerTest, RightPassword_LetsTheRequestGoOn) {
    EXPECT_EQ(Refusal(kRight), 0);
    EXPECT_EQ(client.grantedCredentials, kRight);
    EXPECT_EQ(Refusal(kRight), 0);
}

TEST_F(CimHandlerTest, NoPassword_IsAskedForAtOnce) {
    EXPECT_EQ(Refusal(kRight), 0);
    EXPECT_EQ(Refusal(""), 401);
}

TEST_F(CimHandlerTest, WrongPassword_IsLoggedAndAnsweredAfterAPause) {
    EXPECT_EQ(Refusal(kRight), 0);
    auto refusal = std::async(std::launch::async, [&] { return Refusal(kWrong); });
    EXPECT_EQ(logged.get_future().get(),
              "The user 'ann' at 192.0.2.1:40000 gave a wrong password.");
    EXPECT_EQ(refusal.wait_for(100ms), std::future_status::timeout);
    stop.Set();
    EXPECT_EQ(refusal.get(), 401);
}

TEST_F(CimHandlerTest, ServerThatIsOpenToAll_AsksForNoPassword) {
    const CimHandler open(operations, limits, nullptr, stop, {});
    EXPECT_FALSE(open.Refuse(Head(""), client));
}

}  // namespace
}  // namespace cimxml
