#include <cli/report/RealMachineCommand.h>
#include <gtest/gtest.h>

namespace cli {
namespace {

using platform::Origin;

Session SimulatedSession() {
    Session session;
    session.executable = "/opt/bin/bmci2c";
    session.settings.profileFile = {"/p.toml", Origin::Environment};
    return session;
}

TEST(RealMachineCommand, ProfileOfAnOption_IsLeftOut) {
    EXPECT_EQ(RealMachineCommand(SimulatedSession(), false), "sudo /opt/bin/bmci2c run");
    EXPECT_EQ(RealMachineCommand(SimulatedSession(), true), "/opt/bin/bmci2c run");
}

TEST(RealMachineCommand, ProfileOfTheEnvironment_IsUnset) {
    Session session = SimulatedSession();
    session.inheritedProfile = true;
    EXPECT_EQ(RealMachineCommand(session, true), "env -u BMCI2C_SIMULATE /opt/bin/bmci2c run");
}

TEST(RealMachineCommand, OtherChoices_AreKeptAndQuoted) {
    Session session = SimulatedSession();
    session.options.module = "/m.so";
    session.settings.configFile = {"/it's mine/c.toml", Origin::Environment};
    session.settings.root = {"/root dir", Origin::Environment};
    EXPECT_EQ(
        RealMachineCommand(session, true),
        R"(/opt/bin/bmci2c --config '/it'\''s mine/c.toml' --module /m.so --root '/root dir' run)");
}

TEST(RealMachineCommand, RootByDefault_IsNotNamed) {
    Session session = SimulatedSession();
    session.settings.root = {"/opt/share", Origin::Default};
    EXPECT_EQ(RealMachineCommand(session, true), "/opt/bin/bmci2c run");
}

TEST(RealMachineCommand, SettingsThatSimulate_AreReplacedByEmptyOnes) {
    Session session;
    session.executable = "/opt/bin/bmci2c";
    session.settings.configFile = {"/c.toml", Origin::Environment};
    EXPECT_EQ(RealMachineCommand(session, true), "/opt/bin/bmci2c --config /dev/null run");
}

}  // namespace
}  // namespace cli
