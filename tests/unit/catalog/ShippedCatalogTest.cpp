// The catalog that is shipped.
#include <fstream>
#include <iterator>
#include <set>
#include <tuple>

#include "CatalogFixture.h"

using testing::AllOf;
using testing::ContainsRegex;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

constexpr unsigned short kFallback = 2;
constexpr unsigned short kHeadings[] = {201, 206, 207};

// The numbers of results that are not a pass.
std::vector<unsigned short> ProblemNumbers() {
    std::vector<unsigned short> numbers = {101, 102};
    for (unsigned short number = 801; number <= 824; ++number) {
        numbers.push_back(number);
    }
    for (unsigned short number = 901; number <= 964; ++number) {
        numbers.push_back(number);
    }
    return numbers;
}

class ShippedCatalog : public CatalogFixture {
protected:
    void Read(Build build) {
        MakeParser(build);
        std::ifstream file(SHIPPED_CATALOG, std::ios::binary);
        ASSERT_TRUE(file.is_open()) << SHIPPED_CATALOG;
        Parse(std::string(std::istreambuf_iterator<char>(file), {}));
        ASSERT_THAT(Errors(), IsEmpty());
    }

    // The message of the entry with a machine type.
    TXMessage MessageOf(const std::string& type) const {
        for (const auto& machine : parser->GetMachineList()) {
            if (machine->GetMachineTypes().front() == type) {
                return machine->GetMessege();
            }
        }
        ADD_FAILURE() << "There is no machine " << type;
        return {};
    }
};

// Both generic entries in both builds.
class ShippedGenericEntry : public ShippedCatalog,
                            public testing::WithParamInterface<std::tuple<std::string, bool>> {
protected:
    void SetUp() override {
        Read(std::get<bool>(GetParam()) ? Build::Oem : Build::Standard);
        message = MessageOf(std::get<std::string>(GetParam()));
    }

    TXMessage message;
};

}  // namespace

TEST_F(ShippedCatalog, Machines_AreTheGenericOnesAndTheSamples) {
    Read(Build::Standard);
    std::vector<std::vector<std::string>> types;
    for (const auto& machine : parser->GetMachineList()) {
        types.push_back(machine->GetMachineTypes());
    }
    EXPECT_THAT(types,
                ElementsAre(ElementsAre("GENERIC_QUV"), ElementsAre("GENERIC_QUV_OXC"),
                            ElementsAre("7000", "7001"), ElementsAre("7100"), ElementsAre("7200")));
}

TEST_F(ShippedCatalog, MachineWithATextOfItsOwn_HasItsOwnAdvice) {
    Read(Build::Standard);
    const TXMessage message = MessageOf("7100");
    EXPECT_EQ(message.GetValueFromMap(901),
              "I2C bus 0 (power supplies) of this management controller has failed.");
    EXPECT_THAT(message.GetRecommendations(901),
                ElementsAre(StartsWith("Check that all power supplies"), HasSubstr("QUV support")));
    EXPECT_EQ(message.GetSizeOfValueMap(), 1U);
    EXPECT_EQ(message.GetAllRecommendations().size(), 2U);
}

TEST_P(ShippedGenericEntry, Headings_EndSoThatTheTextCanFollow) {
    EXPECT_EQ(message.GetValueFromMap(201), "BMC I2C Test Passed: ");
    EXPECT_EQ(message.GetValueFromMap(206), "BMC I2C Test Failed: ");
    EXPECT_EQ(message.GetValueFromMap(207), "BMC I2C Test Not Completed: ");
}

TEST_P(ShippedGenericEntry, Fallback_EndsSoThatTheNumberCanFollow) {
    EXPECT_EQ(message.GetValueFromMap(kFallback),
              "The message catalog has no text for this result");
}

TEST_P(ShippedGenericEntry, EveryResult_HasATextThatIsASentence) {
    std::vector<unsigned short> numbers = ProblemNumbers();
    numbers.push_back(0);
    for (const unsigned short number : numbers) {
        EXPECT_THAT(message.GetValueFromMap(number), ContainsRegex("^[A-Z][^\n]*[.]$")) << number;
    }
    EXPECT_EQ(message.GetSizeOfValueMap(), numbers.size() + std::size(kHeadings) + 1);
}

TEST_P(ShippedGenericEntry, EveryProblem_HasAdviceAndTheRightSupportLast) {
    const bool isOem = std::get<bool>(GetParam());
    const char* const support = isOem ? "the company that sold you this server" : "QUV support";
    for (const unsigned short number : ProblemNumbers()) {
        const std::vector<std::string> advice = message.GetRecommendations(number);
        ASSERT_GE(advice.size(), 2U) << number;
        EXPECT_THAT(advice.back(), HasSubstr(support)) << number;
        for (const std::string& line : advice) {
            EXPECT_THAT(line, ContainsRegex("^[A-Z][^\n]*[.]$")) << number;
        }
    }
}

TEST_P(ShippedGenericEntry, NothingButProblems_HasAdvice) {
    std::set<unsigned int> advised;
    for (const auto& [number, text] : message.GetAllRecommendations()) {
        advised.insert(number);
    }
    const std::vector<unsigned short> problems = ProblemNumbers();
    EXPECT_EQ(advised, std::set<unsigned int>(problems.begin(), problems.end()));
}

TEST_P(ShippedGenericEntry, BusMessages_NameTheirBus) {
    for (unsigned short bus = 0; bus < 64; ++bus) {
        EXPECT_THAT(message.GetValueFromMap(static_cast<unsigned short>(901 + bus)),
                    StartsWith("I2C bus " + std::to_string(bus) + " "));
    }
}

TEST_P(ShippedGenericEntry, CompletionCodeMessages_NameTheirCode) {
    EXPECT_THAT(message.GetValueFromMap(803), EndsWith("(completion code 0xC0)."));
    EXPECT_THAT(message.GetValueFromMap(804),
                AllOf(HasSubstr("does not know"), EndsWith("(completion code 0xC1).")));
    EXPECT_THAT(message.GetValueFromMap(812), EndsWith("(completion code 0xC9)."));
    EXPECT_THAT(message.GetValueFromMap(813), EndsWith("(completion code 0xCA)."));
    EXPECT_THAT(message.GetValueFromMap(824), EndsWith("(completion code 0xD5)."));
}

INSTANTIATE_TEST_SUITE_P(EveryBuild, ShippedGenericEntry,
                         testing::Combine(testing::Values("GENERIC_QUV", "GENERIC_QUV_OXC"),
                                          testing::Bool()),
                         [](const testing::TestParamInfo<std::tuple<std::string, bool>>& entry) {
                             return std::get<std::string>(entry.param) +
                                    (std::get<bool>(entry.param) ? "_Oem" : "");
                         });
