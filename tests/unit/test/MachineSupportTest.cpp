#include <fakes/FakeDiagnostics.h>
#include <gmock/gmock.h>
#include <platform/diagnostics/TZDXException.h>

#include <filesystem>
#include <sstream>

#include "EngineFixture.h"
#include "GroupingLocale.h"

using engine::Catalog;
using engine::Location;
using ::testing::Contains;
using ::testing::Not;
using Lines = std::vector<std::string>;

namespace {

constexpr char kNeither[] = "2 BMCI2C: Neither Machine type nor Bios ID is supported.";
constexpr char kNoBiosId[] = "2 BMCI2C: Fail to read BiosID!";

class MachineSupport : public engine::EngineTest {
protected:
    bool Supported(const Catalog& catalog) {
        WriteCatalog(catalog);
        Prepare();
        return Test().IsMachineSupported();
    }

    std::string TypeOfMachine() { return FirstType(Test().machine); }
    std::string TypeOfGenericMachine() { return FirstType(Test().genericMachine); }

    static std::size_t MachineCount(const BMCI2C_Test_Impl& test) {
        return test.parser.GetMachineList().size();
    }

private:
    static std::string FirstType(const boost::shared_ptr<TMachine>& entry) {
        return entry == nullptr ? "none" : entry->GetMachineTypes().front();
    }
};

}  // namespace

TEST_F(MachineSupport, GetMachineType_ReadsItAndLogsTheAddress) {
    std::string machineType;
    EXPECT_EQ(Test().GetMachineType(&machineType), 0);
    EXPECT_EQ(machineType, "7000");
    std::ostringstream address;
    address << static_cast<const void*>(&machineType);
    EXPECT_EQ(
        FakeDiagnostics::Lines(),
        (std::vector<LogLine>{{NQUVZDX20::kLogTrace, "getMachineType() entered."},
                              {NQUVZDX20::kLogTrace, "getMachineType:  = " + address.str()}}));
}

TEST_F(MachineSupport, GetMachineType_LocaleThatGroupsDigits_LogsThePlainAddress) {
    const GroupingLocale locale;
    std::string machineType;
    Test().GetMachineType(&machineType);
    EXPECT_THAT(FakeDiagnostics::Lines().back().text,
                testing::MatchesRegex("getMachineType:  = 0x[0-9a-f]+"));
}

TEST_F(MachineSupport, ReadMachineType_Given_KeepsNoRecord) {
    Test().ReadMachineType();
    EXPECT_EQ(Test().machineType, "7000");
    EXPECT_TRUE(Records().empty());
}

TEST_F(MachineSupport, ReadMachineType_Empty_KeepsARecord) {
    Prepare();
    SetMachine("", "7000");
    Test().ReadMachineType();
    EXPECT_EQ(OnlyRecord().MachineType, "");
    EXPECT_EQ(OnlyRecord().RecordData, "166-102-000 STOP: The machine type is empty.");
    EXPECT_EQ(OnlyRecord().CompletionState, 6);
    EXPECT_EQ(Log(),
              (Lines{"3 getMachineType() entered.", "3 getMachineType:  = ADDRESS",
                     "2 BMCI2C Bus Test fails with reason : Machine Type is Empty.", Location(624),
                     Location(555), Location(617), Location(641), Location(708)}));
}

TEST_F(MachineSupport, ReadMachineType_EmptyAgain_KeepsAnotherRecord) {
    SetMachine("", "7000");
    Test().ReadMachineType();
    Test().ReadMachineType();
    EXPECT_EQ(Records().size(), 2u);
}

TEST_F(MachineSupport, ParseXml_ReadsTheCatalogBelowTheRoot) {
    Test().ReadMachineType();
    Test().ParseXML();
    EXPECT_EQ(MachineCount(Test()), 3u);
    EXPECT_EQ(Log().back(), Location(515));
}

TEST_F(MachineSupport, ParseXml_Again_DoesNotReadTheFileAgain) {
    Prepare();
    Test().ParseXML();
    EXPECT_EQ(MachineCount(Test()), 3u);
    EXPECT_EQ(Log(), Lines{Location(515)});
}

TEST_F(MachineSupport, ParseXml_MachineTypeEmpty_ReadsLater) {
    SetMachine("", "IBE1");
    Prepare();
    EXPECT_FALSE(Test().parser.IsDataCollected());
    SetMachine("7000", "IBE1");
    Prepare();
    EXPECT_TRUE(Test().parser.IsDataCollected());
    EXPECT_EQ(MachineCount(Test()), 3u);
}

TEST_F(MachineSupport, ParseXml_CatalogMissing_IsSilentAndNotTriedAgain) {
    std::filesystem::remove(CatalogPath());
    Test().ReadMachineType();
    Test().ParseXML();
    EXPECT_EQ(Log(), (Lines{"3 getMachineType() entered.", "3 getMachineType:  = ADDRESS",
                            Location(515)}));
    WriteCatalog(engine::SampleCatalog());
    Test().ParseXML();
    EXPECT_EQ(MachineCount(Test()), 0u);
}

TEST_F(MachineSupport, ParseXml_FileShorterThanItsSize_ParsesWhatWasRead) {
    FakeDiagnostics::fileSize = std::filesystem::file_size(CatalogPath()) + 100;
    Prepare();
    EXPECT_EQ(MachineCount(Test()), 3u);
    for (const LogLine& line : FakeDiagnostics::Lines()) {
        EXPECT_NE(line.severity, NQUVZDX20::kLogFatal) << line.text;
    }
}

TEST_F(MachineSupport, ParseXml_CatalogEmpty_SupportsNoMachine) {
    WriteCatalogText("");
    Prepare();
    EXPECT_FALSE(Test().IsMachineSupported());
    EXPECT_EQ(MachineCount(Test()), 0u);
}

TEST_F(MachineSupport, ParseXml_CatalogDoesNotFitMemory_ThrowsCode4) {
    Test().ReadMachineType();
    FakeDiagnostics::fileSize = static_cast<unsigned long>(PTRDIFF_MAX) - 1;
    try {
        Test().ParseXML();
        FAIL() << "the memory was there";
    } catch (const NQUVZDX20::TZDXException& error) {
        EXPECT_EQ(error.GetCode(), 4);
        EXPECT_EQ(error.what(), NQUVZDX20::TZDXStatusCode(4).TranslateStatusCode());
    }
}

TEST_F(MachineSupport, MachineTypeListed_IsSupported) {
    EXPECT_TRUE(Supported(engine::SampleCatalog()));
    EXPECT_EQ(TypeOfMachine(), "7000");
    EXPECT_EQ(TypeOfGenericMachine(), "GENERIC_QUV");
    EXPECT_EQ(Log(), (Lines{Location(555), Location(617)}));
}

TEST_F(MachineSupport, MachineTypeEquated_IsSupported) {
    SetMachine("7002", "IBE1");
    EXPECT_TRUE(Supported({{.types = {"GENERIC_QUV"}}, {.types = {"7000", "7001", "7002"}}}));
    EXPECT_EQ(TypeOfMachine(), "7000");
}

TEST_F(MachineSupport, OnlyBiosIdListed_IsSupported) {
    SetMachine("9999", "7000");
    EXPECT_TRUE(Supported(engine::SampleCatalog()));
    EXPECT_EQ(TypeOfMachine(), "7000");
}

TEST_F(MachineSupport, OtherLetterCase_IsNotSupported) {
    SetMachine("abc", "IBE1");
    EXPECT_FALSE(Supported({{.types = {"GENERIC_QUV"}}, {.types = {"ABC"}}}));
    EXPECT_EQ(Log(), (Lines{Location(555), kNeither, Location(617)}));
}

TEST_F(MachineSupport, BeginningOfATypeOnly_IsNotSupported) {
    SetMachine("700", "70000");
    EXPECT_FALSE(Supported(engine::SampleCatalog()));
}

TEST_F(MachineSupport, NoGenericEntry_IsSupportedAllTheSameAndSaysNeither) {
    EXPECT_TRUE(Supported({{.types = {"7000"}}}));
    EXPECT_EQ(TypeOfGenericMachine(), "none");
    EXPECT_EQ(Log(), (Lines{Location(555), kNeither, Location(617)}));
}

TEST_F(MachineSupport, OxcController_TakesTheOxcGenericEntry) {
    FakeServiceProcessor::isOxc = true;
    EXPECT_TRUE(Supported(engine::SampleCatalog()));
    EXPECT_EQ(TypeOfGenericMachine(), "GENERIC_QUV_OXC");
}

TEST_F(MachineSupport, OxcController_OrdinaryGenericEntryOnly_SaysNeither) {
    FakeServiceProcessor::isOxc = true;
    EXPECT_TRUE(Supported({{.types = {"GENERIC_QUV"}}, {.types = {"7000"}}}));
    EXPECT_EQ(TypeOfGenericMachine(), "none");
    EXPECT_THAT(Log(), Contains(kNeither));
}

TEST_F(MachineSupport, BiosIdEmpty_SaysSoAndIsMatchedAllTheSame) {
    SetMachine("9999", "");
    EXPECT_TRUE(Supported({{.types = {"GENERIC_QUV"}}, {.types = {""}}}));
    EXPECT_EQ(Log(), (Lines{Location(555), kNoBiosId, Location(617)}));
}

TEST_F(MachineSupport, BiosId00_SaysSoAndIsMatchedAllTheSame) {
    SetMachine("9999", "00");
    EXPECT_TRUE(Supported({{.types = {"GENERIC_QUV"}}, {.types = {"00"}}}));
    EXPECT_EQ(Log(), (Lines{Location(555), kNoBiosId, Location(617)}));
}

TEST_F(MachineSupport, BiosId0_IsAnIdentifier) {
    SetMachine("7000", "0");
    EXPECT_TRUE(Supported(engine::SampleCatalog()));
    EXPECT_THAT(Log(), Not(Contains(kNoBiosId)));
}

TEST_F(MachineSupport, LaterMatchByFirstType_ReplacesAnEarlierOne) {
    EXPECT_TRUE(Supported({{.types = {"GENERIC_QUV"}},
                           {.types = {"7000"}, .texts = {{"1", "first"}}},
                           {.types = {"7000"}, .texts = {{"1", "second"}}}}));
    EXPECT_EQ(Test().machine->GetMessege().GetValueFromMap(1), "second");
}

TEST_F(MachineSupport, BothFound_LaterEntryIsLookedAtByItsFirstTypeOnly) {
    SetMachine("7000", "7200");
    EXPECT_TRUE(
        Supported({{.types = {"GENERIC_QUV"}}, {.types = {"7000"}}, {.types = {"7100", "7200"}}}));
    EXPECT_EQ(TypeOfMachine(), "7000");
}

TEST_F(MachineSupport, GenericEntryMissingSoFar_LaterEntryIsLookedAtByEveryType) {
    SetMachine("7000", "7200");
    EXPECT_TRUE(
        Supported({{.types = {"7000"}}, {.types = {"7100", "7200"}}, {.types = {"GENERIC_QUV"}}}));
    EXPECT_EQ(TypeOfMachine(), "7100");
}

TEST_F(MachineSupport, SupportedMachineType_ReadsMachineTypeAndCatalogFirst) {
    EXPECT_TRUE(Test().SupportedMachineType());
    EXPECT_EQ(Log(), (Lines{"3 getMachineType() entered.", "3 getMachineType:  = ADDRESS",
                            Location(515), Location(555), Location(617)}));
    SetMachine("9999", "IBE1");
    EXPECT_FALSE(Test().SupportedMachineType());
}

TEST_F(MachineSupport, NoLongerSupported_KeepsTheEntryOfBefore) {
    EXPECT_TRUE(Test().SupportedMachineType());
    SetMachine("9999", "IBE1");
    EXPECT_FALSE(Test().SupportedMachineType());
    EXPECT_EQ(TypeOfMachine(), "7000");
}
