// A test object on a scripted machine: machine type 7000, BIOS identifier "IBE1", one controller,
// and the catalog of SampleCatalog().
#pragma once

#include <fakes/FakeServiceProcessor.h>
#include <fakes/FakeSystem.h>
#include <gtest/gtest.h>
#include <test/BMCI2C_Test_Impl.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace engine {

// IPMI commands, as the controllers see them.
inline constexpr std::uint8_t kStatus = 0x09;
inline constexpr std::uint8_t kGeneration = 0xC1;

struct NumberedText {
    std::string number;
    std::string text;
};

// One machine of a catalog; the types after the first become equates.
struct CatalogEntry {
    std::vector<std::string> types;
    std::vector<NumberedText> texts = {};
    std::vector<NumberedText> recommendations = {};
};

using Catalog = std::vector<CatalogEntry>;

// Machine 7000 with few texts of its own, and both generic entries.
Catalog SampleCatalog();

// What a reader of the list sees of a record.
struct RecordView {
    std::string name;
    std::string text;
    int state = 0;
    bool operator==(const RecordView&) const = default;
};
std::ostream& operator<<(std::ostream& output, const RecordView& record);

std::vector<RecordView> RecordsOf(const DiagService& test);

// The severity-3 log line of a location marker.
std::string Location(int line);

// A length as part of a test's name: "248", "Minus3".
std::string LengthName(int length);

class EngineTest : public ::testing::Test {
protected:
    EngineTest();
    ~EngineTest() override;

    static void SetMachine(const std::string& machineType, const std::string& biosId);
    void WriteCatalog(const Catalog& catalog);
    void WriteCatalogText(const std::string& text);
    std::string CatalogPath() const;

    // Lets node `node` answer the status request with these data bytes.
    static void AnswerStatus(int node, std::vector<std::uint8_t> data);
    static void AnswerGeneration(std::vector<std::uint8_t> data);

    // The test object; made at the first call, from the controllers as scripted then.
    BMCI2C_Test_Impl& Test();
    void Run() { Test().RunDiagnostic("I2C Bus"); }
    // Makes the test ready for messages: machine type read, catalog read.
    void Prepare();
    std::vector<RecordView> Records() { return RecordsOf(Test()); }
    const BMCI2C_Test_DiagnosticRecord& OnlyRecord();

    // The log since Prepare, or since the beginning, without the parser's and the run's own lines;
    // each line as severity, blank, text. The address in "getMachineType:  = " is replaced by
    // "ADDRESS".
    std::vector<std::string> Log() const;

private:
    std::string root;
    std::size_t logBegin = 0;
    std::unique_ptr<BMCI2C_Test_Impl> testObject;
};

}  // namespace engine
