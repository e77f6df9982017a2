#include <gtest/gtest.h>
#include <test/DiagService.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

class CountedRecord : public DiagnosticRecord {
public:
    CountedRecord(std::string name, std::vector<std::string>& deathList)
        : DiagnosticRecord(std::move(name)), deaths(deathList) {}
    ~CountedRecord() override { deaths.push_back(Name); }
    std::int32_t GetCompletionState() const override { return CompletionState; }

private:
    std::vector<std::string>& deaths;
};

class IdleTest : public DiagService {
public:
    std::int32_t RunDiagnostic(cimple::String) override { return 0; }
    cimple::String GetCaption() const override { return ""; }
    cimple::String GetDescription() const override { return ""; }
    cimple::String GetElementName() const override { return ""; }
};

using Names = std::vector<std::string>;

class DiagServiceTest : public ::testing::Test {
protected:
    DiagnosticRecord* Append(const std::string& name) {
        auto* record = new CountedRecord(name, deaths);
        test->AppendRecord(record);
        return record;
    }

    Names Visited() const {
        Names names;
        test->ForEachRecord([&](const DiagnosticRecord& record) { names.push_back(record.Name); });
        return names;
    }

    Names deaths;
    std::unique_ptr<IdleTest> test = std::make_unique<IdleTest>();
};

Names Tokens(const std::string& text, char separator) {
    return IdleTest().MultiStringTok(text.data(), text.size(), separator);
}

}  // namespace

TEST_F(DiagServiceTest, New_HasNoRecords) {
    EXPECT_TRUE(test->records.empty());
    EXPECT_EQ(Visited(), Names{});
}

TEST_F(DiagServiceTest, Destruction_DestroysTheRecordsInListOrder) {
    Append("a");
    Append("b");
    Append("c");
    EXPECT_EQ(Visited(), (Names{"a", "b", "c"}));
    test.reset();
    EXPECT_EQ(deaths, (Names{"a", "b", "c"}));
}

TEST_F(DiagServiceTest, Destruction_RecordStandsTwice_IsDestroyedOnce) {
    DiagnosticRecord* const twice = Append("a");
    Append("b");
    test->AppendRecord(twice);
    EXPECT_EQ(Visited(), (Names{"a", "b", "a"}));
    test.reset();
    EXPECT_EQ(deaths, (Names{"a", "b"}));
}

TEST_F(DiagServiceTest, NullInTheList_IsPassedOver) {
    Append("a");
    test->AppendRecord(nullptr);
    Append("b");
    EXPECT_EQ(Visited(), (Names{"a", "b"}));
    test.reset();
    EXPECT_EQ(deaths, (Names{"a", "b"}));
}

TEST_F(DiagServiceTest, ReplaceRecords_KeptRecord_OutlivesTheOthers) {
    Append("a");
    DiagnosticRecord* const kept = Append("b");
    Append("c");
    test->AppendRecord(kept);
    test->ReplaceRecords({kept});
    EXPECT_EQ(deaths, (Names{"a", "c"}));
    EXPECT_EQ(Visited(), Names{"b"});
}

TEST_F(DiagServiceTest, ReplaceRecords_ByNothing_DestroysAll) {
    Append("a");
    Append("b");
    test->ReplaceRecords({});
    EXPECT_EQ(deaths, (Names{"a", "b"}));
    EXPECT_TRUE(test->records.empty());
}

TEST_F(DiagServiceTest, ForEachRecord_VisitThrows_ListCanBeReadAgain) {
    Append("a");
    EXPECT_THROW(
        test->ForEachRecord([](const DiagnosticRecord&) { throw std::runtime_error("enough"); }),
        std::runtime_error);
    EXPECT_EQ(Visited(), Names{"a"});
}

TEST(MultiStringTok, FirstTokenEndsAtSeparator_LaterOnesAtNul) {
    using namespace std::string_literals;
    EXPECT_EQ(Tokens("one:two:2\0three\0end"s, ':'), (Names{"one", "two:2", "three"}));
}

TEST(MultiStringTok, EndAmongTheLastTwoBytes_TakesNoToken) {
    using namespace std::string_literals;
    EXPECT_EQ(Tokens("one:"s, ':'), Names{});
    EXPECT_EQ(Tokens("one:x"s, ':'), Names{});
    EXPECT_EQ(Tokens("one:xy"s, ':'), Names{"one"});
    EXPECT_EQ(Tokens("a:b\0c\0"s, ':'), (Names{"a", "b"}));
}

TEST(MultiStringTok, NoSeparator_TakesNoToken) { EXPECT_EQ(Tokens("one two three", ':'), Names{}); }

TEST(MultiStringTok, EmptyTokens_AreTaken) {
    using namespace std::string_literals;
    EXPECT_EQ(Tokens(":\0\0xyz"s, ':'), (Names{"", "", ""}));
}

TEST(MultiStringTok, TextShorterThanTwoBytes_TakesNoToken) {
    EXPECT_EQ(Tokens("", ':'), Names{});
    EXPECT_EQ(Tokens(":", ':'), Names{});
}
