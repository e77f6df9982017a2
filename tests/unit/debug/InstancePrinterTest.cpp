#include <debug/InstancePrinter.h>
#include <fakes/FakeTraceSink.h>
#include <framework/Instance_Ptr.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <schema/QUVSG_BMCI2C_AffectedJobElement.h>
#include <schema/QUVSG_BMCI2C_ConcreteJob.h>
#include <schema/QUVSG_BMCI2C_JobSettingData.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

namespace {

std::string Joined() {
    std::string text;
    for (const std::string& line : FakeTraceSink::lines) text += line;
    return text;
}

// A class whose instances can stand in a chain, as the generator would write it.
class ACME_Link : public cimple::Instance {
public:
    ACME_Link* Next = nullptr;
    cimple::Property<std::uint32_t> Number;

    static const cimple::Meta_Class static_meta_class;
};

// Its members stand behind those of its base. The standard leaves offsetof of such a class to the
// compiler; GCC and Clang support it.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
constexpr cimple::Meta_Feature kLinkFeatures[] = {
    {"Next",
     cimple::FEATURE_REFERENCE,
     {},
     &ACME_Link::static_meta_class,
     offsetof(ACME_Link, Next)},
    {"Number", cimple::FEATURE_PROPERTY, cimple::Type::uint32, nullptr,
     offsetof(ACME_Link, Number)},
};
#pragma GCC diagnostic pop
constinit const cimple::Meta_Class ACME_Link::static_meta_class = {
    .name = "ACME_Link",
    .flags = 0,
    .super_class = nullptr,
    .features = kLinkFeatures,
    .feature_count = std::size(kLinkFeatures),
    .methods = nullptr,
    .method_count = 0,
    .size = sizeof(ACME_Link),
    .construct = &cimple::construct_as<ACME_Link>,
    .destruct = &cimple::destruct_as<ACME_Link>,
    .repository = nullptr,
};

// Links numbered from 0, each referring to the next one.
cimple::Instance_Ptr Chain(std::uint32_t length) {
    ACME_Link* first = nullptr;
    for (std::uint32_t number = length; number-- > 0;) {
        auto* link = cimple::create<ACME_Link>();
        link->Number = number;
        link->Next = first;
        first = link;
    }
    return cimple::Instance_Ptr(first);
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

TEST_F(InstancePrinterTest, Xprint_NestedReferences_AreFollowedThreeLevelsDeep) {
    const cimple::Instance_Ptr chain = Chain(6);
    xprint(chain.get());
    EXPECT_EQ(Joined(),
              "ACME_Link \n"
              "{\n"
              "    ACME_Link Next =\n"
              "    {\n"
              "        ACME_Link Next =\n"
              "        {\n"
              "            ACME_Link Next =\n"
              "            {\n"
              "                Number = 3;\n"
              "            }\n"
              "            Number = 2;\n"
              "        }\n"
              "        Number = 1;\n"
              "    }\n"
              "    Number = 0;\n"
              "}\n");
}

TEST_F(InstancePrinterTest, Xprint_NullReferenceAtTheDeepestLevel_IsStillNamed) {
    const cimple::Instance_Ptr chain = Chain(4);
    xprint(chain.get());
    EXPECT_THAT(FakeTraceSink::lines, testing::Contains("ACME_Link Next = null;\n"));
}

TEST_F(InstancePrinterTest, PrintAux_PrintsAtItsLevelUnderItsName) {
    const cimple::Instance_Ptr chain = Chain(1);
    IO::_print_aux(chain.get(), "Role", 2, cimple::FEATURE_PROPERTY);
    EXPECT_EQ(Joined(),
              "        ACME_Link Role =\n"
              "        {\n"
              "            Number = 0;\n"
              "        }\n");
}

TEST_F(InstancePrinterTest, PrintAux_PrintsOnlyTheKindsOfFeaturesInItsFlags) {
    const cimple::Instance_Ptr chain = Chain(2);
    IO::_print_aux(chain.get(), nullptr, 0, cimple::FEATURE_REFERENCE);
    EXPECT_EQ(Joined(),
              "ACME_Link \n"
              "{\n"
              "    ACME_Link Next =\n"
              "    {\n"
              "        ACME_Link Next = null;\n"
              "    }\n"
              "}\n");
}
