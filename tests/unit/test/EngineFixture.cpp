#include "EngineFixture.h"

#include <fakes/FakeDiagnostics.h>

#include <filesystem>
#include <fstream>
#include <ostream>

namespace engine {

namespace {

constexpr char kParserLine[] = "BMCI2C Parser Line ";
constexpr char kRunLine[] = "Run: ";
constexpr char kAddressLine[] = "getMachineType:  = ";

std::string Property(const NumberedText& entry, const std::string& qualifier) {
    const std::string open =
        qualifier.empty() ? "" : "<qualifier name=\"" + qualifier + "\" type=\"string\">";
    const std::string close = qualifier.empty() ? "" : "</qualifier>";
    return "<property name=\"message\" index=\"" + entry.number + "\">" + open + "<value>" +
           entry.text + "</value>\n" + close + "</property>\n";
}

std::string CatalogText(const Catalog& catalog) {
    std::string equates;
    std::string machines;
    for (const CatalogEntry& entry : catalog) {
        const std::string& type = entry.types.front();
        for (std::size_t further = 1; further < entry.types.size(); ++further) {
            equates += "<machinetypeequates realmt=\"" + entry.types[further] + "\" xmlmt=\"" +
                       type + "\"/>\n";
        }
        machines += "<machine type=\"" + type + "\">\n";
        for (const NumberedText& text : entry.texts) {
            machines += Property(text, "");
        }
        for (const NumberedText& recommendation : entry.recommendations) {
            machines += Property(recommendation, "recommendation");
        }
        machines += "</machine>\n";
    }
    return "<bmci2cmsg version=\"1.0\">\n" + equates + machines + "</bmci2cmsg>\n";
}

}  // namespace

Catalog SampleCatalog() {
    return {
        {.types = {"GENERIC_QUV"},
         .texts = {{"0", "All busses work."},
                   {"2", "There is no text"},
                   {"101", "The machine type cannot be read."},
                   {"102", "The machine type is empty."},
                   {"201", "PASS: "},
                   {"206", "FAULT: "},
                   {"207", "STOP: "},
                   {"801", "The answer is too short."},
                   {"802", "The controller does not answer."},
                   {"803", "Code C0."},
                   {"804", "Code C1."},
                   {"824", "Code D5."},
                   {"901", "Bus 0 failed."},
                   {"902", "Bus 1 failed."},
                   {"916", "Bus 15 failed."}},
         .recommendations = {{"0", "Never shown."},
                             {"801", "Reset the controller."},
                             {"901", "Reseat the planar."},
                             {"901", "Replace the planar."},
                             {"902", "Replace the planar."}}},
        {.types = {"7000"},
         .texts = {{"902", "Bus 1 of a 7000 failed."}},
         .recommendations = {{"902", "Call service."}}},
        {.types = {"GENERIC_QUV_OXC"},
         .texts = {{"0", "The OXC works."},
                   {"2", "The OXC has no text"},
                   {"201", "OXC PASS: "},
                   {"206", "OXC FAULT: "},
                   {"207", "OXC STOP: "}}},
    };
}

std::ostream& operator<<(std::ostream& output, const RecordView& record) {
    return output << "{" << record.name << ", state " << record.state << ", \"" << record.text
                  << "\"}";
}

std::vector<RecordView> RecordsOf(const DiagService& test) {
    std::vector<RecordView> views;
    test.ForEachRecord([&](const DiagnosticRecord& record) {
        views.push_back({record.Name, record.RecordData, record.GetCompletionState()});
    });
    return views;
}

std::string Location(int line) {
    return "3 BMCI2C At BMCI2C_Test_Impl.cpp: " + std::to_string(line) + ": ";
}

std::string LengthName(int length) {
    return length < 0 ? "Minus" + std::to_string(-static_cast<long>(length))
                      : std::to_string(length);
}

EngineTest::EngineTest() : root(::testing::TempDir() + "engine" + std::to_string(getpid())) {
    FakeDiagnostics::Reset();
    FakeServiceProcessor::Reset();
    FakeSystem::Reset();
    FakeDiagnostics::root = root;
    SetMachine("7000", "IBE1");
    WriteCatalog(SampleCatalog());
}

EngineTest::~EngineTest() { std::filesystem::remove_all(root); }

void EngineTest::SetMachine(const std::string& machineType, const std::string& biosId) {
    FakeDiagnostics::machineType = machineType;
    FakeDiagnostics::biosId = biosId;
}

void EngineTest::WriteCatalog(const Catalog& catalog) { WriteCatalogText(CatalogText(catalog)); }

void EngineTest::WriteCatalogText(const std::string& text) {
    std::filesystem::create_directories(root + "/bmci2c");
    std::ofstream(CatalogPath()) << text;
}

std::string EngineTest::CatalogPath() const { return root + "/bmci2c/bmci2c.msg.xml"; }

void EngineTest::AnswerStatus(int node, std::vector<std::uint8_t> data) {
    FakeServiceProcessor::Script(node, kStatus, {.data = std::move(data)});
}

void EngineTest::AnswerGeneration(std::vector<std::uint8_t> data) {
    FakeServiceProcessor::Script(0, kGeneration, {.data = std::move(data)});
}

BMCI2C_Test_Impl& EngineTest::Test() {
    if (testObject == nullptr) {
        testObject = std::make_unique<BMCI2C_Test_Impl>();
    }
    return *testObject;
}

void EngineTest::Prepare() {
    Test().ReadMachineType();
    Test().ParseXML();
    logBegin = FakeDiagnostics::Lines().size();
}

const BMCI2C_Test_DiagnosticRecord& EngineTest::OnlyRecord() {
    const auto& records = Test().records;
    if (records.size() != 1) {
        throw std::logic_error("one record was expected, there are " +
                               std::to_string(records.size()));
    }
    return dynamic_cast<const BMCI2C_Test_DiagnosticRecord&>(*records.front());
}

std::vector<std::string> EngineTest::Log() const {
    std::vector<std::string> log;
    const std::vector<LogLine> lines = FakeDiagnostics::Lines();
    for (std::size_t i = logBegin; i < lines.size(); ++i) {
        const std::string& text = lines[i].text;
        if (!text.starts_with(kParserLine) && !text.starts_with(kRunLine)) {
            const bool address = text.starts_with(std::string(kAddressLine) + "0x");
            log.push_back(std::to_string(lines[i].severity) + " " +
                          (address ? std::string(kAddressLine) + "ADDRESS" : text));
        }
    }
    return log;
}

}  // namespace engine
