#include <gmock/gmock.h>
#include <platform/service_processor/lan/HostAddress.h>

#include "FakeClock.h"
#include "FakeResolver.h"
#include "TroubleOf.h"

namespace platform {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr milliseconds kTime{4000};
constexpr TimeAllowance kForName{.limit = kTime, .end = Time::max()};

std::optional<ThrownTrouble> TroubleWithHost(const std::string& host) {
    return TroubleOf([&] { HostAddress(host, kForName); });
}

ThrownTrouble NotFound(const std::string& reason) {
    return {TroubleCode::NameNotFound,
            "The address of the host 'bmc.example' cannot be found: " + reason +
                ". Correct the setting host, or the name resolution of this "
                "machine."};
}

TEST(HostAddress, Address_IsTakenWithoutTheResolver) {
    FakeResolver::Reset({});
    EXPECT_EQ(HostAddress("192.0.2.1", kForName), "192.0.2.1");
    EXPECT_EQ(HostAddress("2001:db8::1", kForName), "2001:db8::1");
    EXPECT_EQ(HostAddress("[2001:db8::1]", kForName), "2001:db8::1");
    EXPECT_THAT(FakeResolver::names, IsEmpty());
}

TEST(HostAddress, Name_IsThatOfTheResolver) {
    FakeResolver::Reset({.after = milliseconds(0), .address = "192.0.2.1"});
    EXPECT_EQ(HostAddress("bmc.example", kForName), "192.0.2.1");
    EXPECT_THAT(FakeResolver::names, ElementsAre("bmc.example"));
}

TEST(HostAddress, SlowResolver_IsWaitedForUntilTheTimeIsOver) {
    FakeResolver::Reset({.after = kTime, .address = "2001:db8::1"});
    const Time before = FakeClock::now;
    EXPECT_EQ(HostAddress("bmc.example", kForName), "2001:db8::1");
    EXPECT_EQ(FakeClock::now - before, kTime);
}

TEST(HostAddress, SilentResolver_IsGivenUpWhenTheTimeIsOver) {
    FakeResolver::Reset({});
    const Time before = FakeClock::now;
    EXPECT_EQ(TroubleWithHost("bmc.example"), NotFound("no answer within 4 s"));
    EXPECT_EQ(FakeClock::now - before, kTime);
}

TEST(HostAddress, StopFlag_EndsTheWaiting) {
    FakeResolver::Reset({});
    const std::atomic<bool> stop = true;
    const Time before = FakeClock::now;
    const auto thrown =
        TroubleOf([&] { HostAddress("bmc.example", {.limit = kTime, .end = {}, .stop = &stop}); });
    ASSERT_TRUE(thrown);
    EXPECT_EQ(thrown->kind, TroubleCode::Interrupted);
    EXPECT_LT(FakeClock::now - before, kTime);
}

TEST(HostAddress, NameAfterOneThatWasGivenUp_IsResolved) {
    FakeResolver::Reset({});
    EXPECT_NE(TroubleWithHost("bmc.example"), std::nullopt);
    FakeResolver::Reset({.after = milliseconds(0), .address = "192.0.2.1"});
    EXPECT_EQ(HostAddress("bmc.example", kForName), "192.0.2.1");
}

TEST(HostAddress, NameWithoutAddress_IsToldWithTheReason) {
    FakeResolver::Reset({.after = milliseconds(0)});
    EXPECT_EQ(TroubleWithHost("bmc.example"), NotFound("Name or service not known"));
}

TEST(HostAddress, FailureOfTheResolver_IsToldWithTheReason) {
    FakeResolver::Reset({.after = milliseconds(0), .error = EAI_AGAIN});
    EXPECT_EQ(TroubleWithHost("bmc.example"), NotFound("Temporary failure in name resolution"));
}

TEST(HostAddress, LookupThatCannotBegin_IsToldWithTheReason) {
    FakeResolver::Reset({});
    FakeResolver::startError = EAI_MEMORY;
    EXPECT_EQ(TroubleWithHost("bmc.example"), NotFound("Memory allocation failure"));
}

}  // namespace
}  // namespace platform
