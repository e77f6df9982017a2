#include <cli/report/NextSteps.h>
#include <cli/report/RealMachineCommand.h>
#include <cli/report/RunReport.h>
#include <gmock/gmock.h>

#include "Records.h"

namespace cli {
namespace {

using Outcome = ControllerStatus::Outcome;
using platform::Origin;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const Terminal kPlain;

RunReport ReportWith(std::vector<host::Instance> records, std::vector<ControllerStatus> statuses) {
    RunReport report;
    report.session.executable = "/opt/bin/bmci2c";
    report.session.settings.root.value = "/nowhere/share";
    report.machine = {.type = "7000", .biosId = "P7E100A", .controllers = {}, .troubles = {}};
    for (std::size_t node = 0; node < statuses.size(); ++node)
        report.machine.controllers.push_back({"inband /dev/ipmi" + std::to_string(node), {}});
    report.run = RunWith(std::move(records));
    report.controllers = std::move(statuses);
    return report;
}

ControllerStatus Examined(std::vector<Bus> busses) {
    return {.outcome = Outcome::Examined, .busses = std::move(busses)};
}

const ControllerStatus kSilent{.outcome = Outcome::NotDelivered};

TEST(RunReport, PassedRun_CountsTheGoodBusses) {
    const auto report = ReportWith({Record(2, "166-000-001 Pass")},
                                   {Examined({Bus::Good, Bus::None}), Examined({Bus::Good})});
    EXPECT_EQ(Headline(report), "PASSED: all 2 busses of 2 controllers are good.");
    EXPECT_THAT(NextSteps(report), ElementsAre("Nothing needs to be done."));
}

TEST(RunReport, FailedRun_NamesBussesAndTheRecommendations) {
    const auto report = ReportWith({Record(5, "166-903-002 Bus 2 failed")},
                                   {Examined({}), Examined({Bus::Good, Bus::Failed, Bus::Failed})});
    EXPECT_EQ(Headline(report),
              "FAILED: 2 busses have failed: bus 1 of node 1 and bus 2 of node 1.");
    EXPECT_THAT(NextSteps(report),
                ElementsAre("Follow the recommendations above for each failed bus, then run the "
                            "test again."));
}

TEST(RunReport, FailedRunWithManyBusses_CountsThem) {
    const auto report = ReportWith({Record(5, "")}, {Examined(std::vector<Bus>(7, Bus::Failed))});
    EXPECT_EQ(Headline(report), "FAILED: 7 busses have failed.");
}

TEST(RunReport, FailedRunWithASilentController_SpeaksOfBoth) {
    auto report = ReportWith({Record(5, "")}, {Examined({Bus::Failed}), kSilent});
    report.troubles = {"SP: node 1: no answer"};
    EXPECT_THAT(NextSteps(report),
                ElementsAre(StartsWith("Follow the recommendations"),
                            "Find out why node 1 could not be examined (see what the library said "
                            "above), then run the test again."));
}

TEST(RunReport, TroubleOfSmbios_IsNoReasonForASilentController) {
    auto report = ReportWith({Record(6, "166-802-001 Silent")}, {kSilent});
    report.troubles = {"DMI: a file cannot be read."};
    EXPECT_THAT(NextSteps(report), ElementsAre("Find out why node 0 could not be examined, then "
                                               "run the test again."));
}

TEST(RunReport, SilentController_IsNotCompleted) {
    const auto report = ReportWith({Record(2, "166-802-001 Silent\n166-000-002 Pass")},
                                   {kSilent, Examined({Bus::Good})});
    EXPECT_EQ(Headline(report), "NOT COMPLETED: the busses of node 0 could not be examined.");
    EXPECT_THAT(NextSteps(report), ElementsAre("Find out why node 0 could not be examined, then "
                                               "run the test again."));
}

TEST(RunReport, UnsupportedMachine_PointsToTheCatalog) {
    const auto report = ReportWith({Record(6, "166-899-001 Aborted")}, {{}});
    EXPECT_EQ(Headline(report),
              "NOT COMPLETED: the message catalog does not list this machine, so no controller was "
              "asked.");
    EXPECT_THAT(NextSteps(report),
                ElementsAre("The message catalog /nowhere/share/bmci2c/bmci2c.msg.xml lists "
                            "neither the machine type '7000' nor the BIOS identifier 'P7E100A'. "
                            "Add the machine to it, or name the diagnostics root directory of "
                            "another catalog (--root DIR)."));
}

TEST(RunReport, MachineWithoutTypeAndBiosId_PointsToSmbiosAndNotToTheCatalog) {
    auto report = ReportWith({Record(6, "166-899-001 Aborted")}, {{}});
    report.machine = {};
    EXPECT_THAT(
        NextSteps(report),
        ElementsAre("Neither the machine type nor the BIOS identifier of this machine could "
                    "be read from SMBIOS. Run the command on the server itself, or set "
                    "'type' under [machine] in the settings file."));
}

TEST(RunReport, CatalogThatCannotBeUsed_IsTheReasonAndThePlaceToBegin) {
    auto report = ReportWith({Record(6, "166-899-001 Aborted")}, {{}});
    report.catalogTrouble = "The message catalog /c.xml is not a file.";
    EXPECT_EQ(Headline(report),
              "NOT COMPLETED: there is no usable message catalog, so no controller was asked.");
    EXPECT_THAT(
        NextSteps(report),
        ElementsAre("The message catalog /c.xml is not a file. Mend it or put one there, or "
                    "name the diagnostics root directory of another catalog (--root "
                    "DIR)."));
}

TEST(RunReport, CatalogThatIsWrongBehindThisMachine_IsNoStep) {
    auto report = ReportWith({Record(2, "166-000-001 Pass")}, {Examined({Bus::Good})});
    report.catalogTrouble = "The message catalog /c.xml is wrong in line 7: ...";
    EXPECT_THAT(NextSteps(report), ElementsAre("Nothing needs to be done."));
}

TEST(RunReport, MachineWithoutController_PointsToTheDriver) {
    const auto report = ReportWith({}, {});
    EXPECT_EQ(Headline(report), "NOT COMPLETED: no management controller was found.");
    EXPECT_THAT(NextSteps(report),
                ElementsAre("No device /dev/ipmi0, /dev/ipmi1 and so on was found: load the "
                            "kernel's IPMI driver (modprobe -a ipmi_si ipmi_devintf), or list the "
                            "controllers in the settings file, then run the test again."));
}

TEST(RunReport, SettingsWithoutController_ArePointedTo) {
    auto report = ReportWith({}, {});
    report.session.settings.controllers = {{{}}, Origin::File, "/etc/p.toml:3"};
    EXPECT_THAT(NextSteps(report),
                ElementsAre("The settings list no controller (/etc/p.toml:3): add a "
                            "[[controller]], or remove the key to use this machine's IPMI "
                            "devices."));
}

TEST(RunReport, ProfileWithoutController_IsPointedTo) {
    auto report = ReportWith({}, {});
    report.session.settings.controllers = {{{}}, Origin::Profile, "/p.toml"};
    EXPECT_THAT(NextSteps(report),
                ElementsAre("The profile /p.toml lists no controller: add a [[node]], or run the "
                            "test without a profile to use this machine's IPMI devices."));
}

TEST(RunReport, UnjudgedControllerWithRecommendations_PointsToThem) {
    const auto report =
        ReportWith({Record(6, "166-802-001 Silent\nRecommendations:\n\nRestart it.")}, {kSilent});
    EXPECT_THAT(NextSteps(report),
                ElementsAre("Follow the recommendations above to find out why node 0 could not be "
                            "examined, then run the test again."));
}

TEST(RunReport, Text_ShowsEverySection) {
    auto report = ReportWith({Record(5, "166-000-001 Pass\n166-901-002 Bus 0 failed")},
                             {Examined({Bus::Good}), Examined({Bus::Failed})});
    report.troubles = {"SP: node 1 is slow"};
    report.run.job = host::Instance{
        ClassPath(kJobClass),
        {{"InstanceID", {CMPI_string, std::string("BMCI2C_Record:383")}},
         {"JobState", {CMPI_uint16, std::uint64_t{7}}},
         {"TimeSubmitted", {CMPI_dateTime, std::string("20240531120000.000000+000")}},
         {"StartTime", {CMPI_dateTime, std::string("20240531120001.000000+000")}}}};
    EXPECT_EQ(RunText(report, kPlain),
              "FAILED: 1 bus has failed: bus 0 of node 1.\n"
              "\n"
              "Machine\n"
              "  Machine type     7000\n"
              "  BIOS identifier  P7E100A\n"
              "\n"
              "Management controllers\n"
              "  node 0  inband /dev/ipmi0\n"
              "  node 1  inband /dev/ipmi1\n"
              "\n"
              "I2C busses of each controller\n"
              "  bus      0\n"
              "  node 0   .\n"
              "  node 1   X\n"
              "\n"
              "  .  good     X  failed\n"
              "\n"
              "What the test recorded\n"
              "  166-000-001 Pass\n"
              "  166-901-002 Bus 0 failed\n"
              "  (166, then the message number - 901 is bus 0 - and which controller was asked:\n"
              "  001 is node 0.)\n"
              "\n"
              "What the controllers' library said\n"
              "  SP: node 1 is slow\n"
              "\n"
              "Job\n"
              "  InstanceID  BMCI2C_Record:383\n"
              "  State       completed (so is the job of every run; the verdict stands above)\n"
              "  Submitted   2024-05-31 12:00:00 +00:00\n"
              "  Started     2024-05-31 12:00:01 +00:00\n"
              "\n"
              "What to do next\n"
              "  Follow the recommendations above for each failed bus, then run the test again.\n");
}

TEST(RunReport, RecordThatWasKeptTwice_IsShownOnce) {
    const auto report =
        ReportWith({Record(6, "166-801-001 Short"), Record(6, "166-801-001 Short")}, {});
    const std::string text = RunText(report, kPlain);
    EXPECT_THAT(text,
                HasSubstr("  166-801-001 Short\n  (recorded once more with the same text)\n"));
}

TEST(RunReport, ResultLineWithoutALineBreakBefore_StartsALine) {
    const auto report = ReportWith({Record(2, "166-000-001 Pass166-802-002 Silent")}, {});
    EXPECT_THAT(RunText(report, kPlain), HasSubstr("  166-000-001 Pass\n  166-802-002 Silent\n"));
}

TEST(RunReport, SimulatedMachine_ShowsTheCommandForTheRealOne) {
    auto report = ReportWith({Record(2, "")}, {});
    report.session.settings.profileFile = {"/p.toml", Origin::Environment};
    const std::string text = RunText(report, kPlain);
    EXPECT_THAT(text, HasSubstr("  Simulated by     /p.toml\n"));
    EXPECT_THAT(text, HasSubstr("\nThe same test on this machine's own controllers\n"));
}

TEST(RunReport, RealMachine_DoesNotSpeakOfSimulation) {
    EXPECT_THAT(RunText(ReportWith({Record(2, "")}, {}), kPlain), Not(HasSubstr("imulat")));
}

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

TEST(RealMachineCommand, RootThatTheCommandChose_IsNotNamed) {
    Session session = SimulatedSession();
    session.choseRoot = true;
    session.settings.root = {"/opt/share", Origin::Environment};
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
