#include <debug/InstancePrinter.h>
#include <fakes/FakeTraceSink.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <schema/QUVSG_BMCI2C_AffectedJobElement.h>
#include <schema/QUVSG_BMCI2C_ConcreteJob.h>
#include <schema/QUVSG_BMCI2C_JobSettingData.h>

#include <string>

namespace {

std::string Joined() {
    std::string text;
    for (const std::string& line : FakeTraceSink::lines) text += line;
    return text;
}

class InstancePrinterTest : public testing::Test {
protected:
    void SetUp() override { FakeTraceSink::lines.clear(); }
};

}  // namespace

TEST_F(InstancePrinterTest, Iprintf_GivesIndentationThenMessage) {
    EXPECT_EQ(IO::iprintf(2, "%s = %d\n", "Count", 7), 10);
    EXPECT_THAT(FakeTraceSink::lines, testing::ElementsAre("        ", "Count = 7\n"));
}

TEST_F(InstancePrinterTest, Iprintf_LongLine_IsCutButItsFullLengthReturned) {
    const std::string text(600, 'x');
    EXPECT_EQ(IO::iprintf(0, "%s", text.c_str()), 600);
    EXPECT_EQ(FakeTraceSink::lines.back(), std::string(511, 'x'));
}

TEST_F(InstancePrinterTest, Iprintf_DeepLevel_IndentationIsCutToo) {
    IO::iprintf(1000, "x");
    EXPECT_EQ(FakeTraceSink::lines.front(), std::string(511, ' '));
}

TEST_F(InstancePrinterTest, Xprint_ShowsClassAndEveryProperty) {
    auto* data = cimple::create<QUVSG_BMCI2C_JobSettingData>();
    data->Caption = "a job";
    data->DeleteOnCompletion = true;
    data->RecoveryAction = 2;
    xprint(data);
    cimple::destroy(data);
    EXPECT_EQ(Joined(),
              "QUVSG_BMCI2C_JobSettingData \n"
              "{\n"
              "    Caption = \"a job\";\n"
              "    Description = null;\n"
              "    ElementName = null;\n"
              "    InstanceID = null;\n"
              "    DeleteOnCompletion = true;\n"
              "    RecoveryAction = 2;\n"
              "    OtherRecoveryAction = null;\n"
              "}\n");
}

TEST_F(InstancePrinterTest, Xprint_ArraysAndDatetimes_AreReadable) {
    auto* job = cimple::create<QUVSG_BMCI2C_ConcreteJob>();
    job->OperationalStatus = {2, 3};
    job->StatusDescriptions = {"Status OK"};
    job->ElapsedTime = cimple::Datetime(0);
    xprint(job);
    cimple::destroy(job);
    EXPECT_THAT(FakeTraceSink::lines, testing::Contains("OperationalStatus = {2, 3};\n"));
    EXPECT_THAT(FakeTraceSink::lines, testing::Contains("StatusDescriptions = {\"Status OK\"};\n"));
    EXPECT_THAT(FakeTraceSink::lines,
                testing::Contains("ElapsedTime = 00000000000000.000000:000;\n"));
}

TEST_F(InstancePrinterTest, Xprint_References_AreFollowedOneLevelDeeperAndNullOnesNamed) {
    auto* association = cimple::create<QUVSG_BMCI2C_AffectedJobElement>();
    association->AffectingElement = cimple::create<QUVSG_BMCI2C_ConcreteJob>();
    xprint(association);
    cimple::destroy(association);
    EXPECT_THAT(Joined(), testing::StartsWith("QUVSG_BMCI2C_AffectedJobElement \n"
                                              "{\n"
                                              "    CIM_ManagedElement AffectedElement = null;\n"
                                              "    QUVSG_BMCI2C_ConcreteJob AffectingElement =\n"
                                              "    {\n"
                                              "        Caption = null;\n"));
}
