#include <gtest/gtest.h>
#include <platform/service_processor/lan/LanTransport.h>
#include <stdlib.h>

#include <vector>

#include "TemporaryFolder.h"
#include "TroubleOf.h"

namespace platform {
namespace {

// What needs no controller; the exchanges themselves are tested against a real simulator.

std::optional<ThrownTrouble> TroubleWith(const ControllerSettings& controller) {
    return TroubleOf([&] {
        LanTransport(controller)
            .Send({.netFn = 0x3A, .lun = 0, .command = 0x09},
                  ShareFrom(Now(), std::chrono::milliseconds(1000)));
    });
}

std::string DescriptionOf(const std::string& host) {
    ControllerSettings controller;
    controller.host = host;
    return LanTransport(controller).Describe();
}

TEST(LanTransport, Describe_NamesHostAndPort) {
    EXPECT_EQ(DescriptionOf("bmc.example"), "lan bmc.example:623");
    EXPECT_EQ(DescriptionOf("192.0.2.1"), "lan 192.0.2.1:623");
    EXPECT_EQ(DescriptionOf("2001:db8::1"), "lan [2001:db8::1]:623");
    EXPECT_EQ(DescriptionOf("[2001:db8::1]"), "lan [2001:db8::1]:623");
}

TEST(LanTransport, PasswordOfTwentyBytes_IsTooLongForProtocol15) {
    const TemporaryFolder folder;
    ControllerSettings controller;
    controller.host = "127.0.0.1";
    controller.protocol = "1.5";
    controller.passwordFile = folder.Write("p", std::string(20, 'x'));
    EXPECT_EQ(TroubleWith(controller),
              (ThrownTrouble{TroubleCode::PasswordFile,
                             "The password file " + controller.passwordFile +
                                 " has more than 16 bytes in its first line, which is longer than "
                                 "a password can be. Set password_file to a file that only its "
                                 "owner may read, with the password in its first line."}));
}

TEST(LanTransport, MissingPasswordFile_SendsNothing) {
    ControllerSettings controller;
    controller.host = "127.0.0.1";
    controller.passwordFile = "/nonexistent/password";
    EXPECT_EQ(TroubleWith(controller),
              (ThrownTrouble{TroubleCode::PasswordFile,
                             "The password file /nonexistent/password cannot be read: No such file "
                             "or directory. Set password_file to a file that only its owner may "
                             "read, with the password in its first line."}));
}

TEST(LanTransport, HostNameWithoutAddress_IsNamed) {
    ControllerSettings controller;
    controller.host = "no host";
    EXPECT_EQ(TroubleWith(controller),
              (ThrownTrouble{TroubleCode::NameNotFound,
                             "The address of the host 'no host' cannot be found: Name or service "
                             "not known. Correct the setting host, or the name resolution of this "
                             "machine."}));
}

// What rand() gives when `between` runs between the first number and the others.
template <class Action>
std::vector<int> RandomNumbers(Action between) {
    srand(7);
    std::vector<int> numbers = {rand()};
    between();
    for (int more = 0; more < 40; ++more) numbers.push_back(rand());
    return numbers;
}

TEST(LanTransport, Request_LeavesTheSequenceOfRand) {
    ControllerSettings controller;
    controller.host = "127.0.0.1";
    controller.port = 9;  // nobody listens
    const auto request = [&] {
        EXPECT_THROW(LanTransport(controller)
                         .Send({.netFn = 0x3A, .lun = 0, .command = 0x09},
                               ShareFrom(Now(), std::chrono::milliseconds(60))),
                     TransportError);
    };
    EXPECT_EQ(RandomNumbers(request), RandomNumbers([] {}));
}

}  // namespace
}  // namespace platform
