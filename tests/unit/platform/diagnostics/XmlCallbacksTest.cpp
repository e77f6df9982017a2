#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>

#include "RecordingParser.h"

using testing::ElementsAre;

namespace {

// Throws when it is told the given event.
class ThrowingParser : public RecordingParser {
public:
    explicit ThrowingParser(std::string eventToThrowAt) : thrower(std::move(eventToThrowAt)) {}

    void StartElement(const char* name, std::map<std::string, std::string>& attributes) override {
        RecordingParser::StartElement(name, attributes);
        ThrowAtEvent();
    }
    void EndElement(const char* name) override {
        RecordingParser::EndElement(name);
        ThrowAtEvent();
    }
    void characters(const char* text, unsigned int length) override {
        RecordingParser::characters(text, length);
        ThrowAtEvent();
    }
    void processingInstruction(const char* target, const char* data) override {
        RecordingParser::processingInstruction(target, data);
        ThrowAtEvent();
    }
    void FatalError(const char* message) override {
        RecordingParser::FatalError(message);
        ThrowAtEvent();
    }

private:
    void ThrowAtEvent() {
        if (events.back() == thrower) {
            throw std::out_of_range("thrown at " + thrower);
        }
    }

    std::string thrower;
};

// The events up to the exception, and its text behind them.
std::vector<std::string> ReadUntilThrow(const std::string& event, std::string document) {
    ThrowingParser parser(event);
    try {
        parser.Parse(document.data());
    } catch (const std::out_of_range& exception) {
        parser.events.emplace_back(exception.what());
    }
    return parser.events;
}

// Counts the calls of the operations that the base parser fills in itself.
class CountingParser : public RecordingParser {
public:
    void ParseJSSP() override {
        ++passes;
        RecordingParser::ParseJSSP();
    }
    void ParseCharData() override {
        ++textReports;
        RecordingParser::ParseCharData();
    }
    void GetAttributeNValue() override {
        ++attributeMaps;
        RecordingParser::GetAttributeNValue();
    }

    int passes = 0;
    int textReports = 0;
    int attributeMaps = 0;
};

// The place of a virtual operation in the table of its class.
template <class Operation>
std::size_t SlotOf(Operation operation) {
    std::uintptr_t offset = 0;
    std::memcpy(&offset, &operation, sizeof offset);
    return offset / sizeof(void*);
}

}  // namespace

TEST(XmlCallbacks, VirtualOperations_StandInTheirFixedOrderAfterTheTwoDestructors) {
    using Parser = NQUVZDX20::TXmlParser;
    EXPECT_EQ(SlotOf(&Parser::StartElement), 2U);
    EXPECT_EQ(SlotOf(&Parser::EndElement), 3U);
    EXPECT_EQ(SlotOf(&Parser::processingInstruction), 4U);
    EXPECT_EQ(SlotOf(&Parser::characters), 5U);
    EXPECT_EQ(SlotOf(&Parser::notationDecl), 6U);
    EXPECT_EQ(SlotOf<void (Parser::*)(const char*)>(&Parser::FatalError), 7U);
    EXPECT_EQ(SlotOf(&Parser::ParseJSSP), 8U);
    EXPECT_EQ(SlotOf(&Parser::ParseCharData), 9U);
    EXPECT_EQ(SlotOf(&Parser::GetAttributeNValue), 10U);
    EXPECT_EQ(SlotOf<void (Parser::*)(std::string)>(&Parser::FatalError), 11U);
}

TEST(XmlCallbacks, StartTag_BringsAttributesByName) {
    EXPECT_THAT(RecordingParser().Read("<a z='1' b='2'><c d='3'/></a>"),
                ElementsAre("start a b=2 z=1", "start c d=3", "end c", "text []", "end a"));
}

TEST(XmlCallbacks, NamesWithColonAndCase_ComeAsWritten) {
    EXPECT_THAT(RecordingParser().Read("<x:A xmlns:x='u'/>"),
                ElementsAre("start x:A xmlns:x=u", "end x:A"));
}

TEST(XmlCallbacks, NotationDeclaration_IsReported) {
    EXPECT_THAT(RecordingParser().Read(
                    "<!DOCTYPE a [<!NOTATION n SYSTEM 's'><!NOTATION m PUBLIC 'p'>]><a/>"),
                ElementsAre("notation n - s", "notation m p -", "start a", "end a"));
}

TEST(XmlCallbacks, NulTerminatedText_IsReadToItsNul) {
    RecordingParser parser;
    char document[] = "<a>x</a>\0<b>";
    parser.Parse(document);
    EXPECT_THAT(parser.events, ElementsAre("start a", "text [x]", "end a"));
}

TEST(XmlCallbacks, TextWithLength_IsReadToItsLengthOnly) {
    RecordingParser parser;
    char document[] = {'<', 'a', '/', '>', '<'};
    parser.Parse(document, 4);
    EXPECT_THAT(parser.events, ElementsAre("start a", "end a"));
}

TEST(XmlCallbacks, CurrentLine_IsThatOfTheTagBeingReported) {
    RecordingParser parser;
    EXPECT_EQ(parser.GetCurLine(), 0);
    parser.Read("<a>\n<b>\nx\n</b>\n</a>\n");
    EXPECT_THAT(parser.events, ElementsAre("start a", "text [\n]", "start b", "text [\nx\n]",
                                           "end b", "text [\n]", "end a"));
    EXPECT_THAT(parser.lines, ElementsAre(1, 2, 2, 4, 4, 5, 5));
}

TEST(XmlCallbacks, BaseOperations_DoTheirJobsThroughTheVirtualTable) {
    CountingParser parser;
    parser.Read("<a><b/></a>");
    EXPECT_EQ(parser.passes, 1);
    EXPECT_EQ(parser.textReports, 4);
    EXPECT_EQ(parser.attributeMaps, 2);
}

TEST(XmlCallbacks, BaseOperationsWithoutADocument_TouchNothing) {
    RecordingParser parser;
    parser.ParseCharData();
    parser.GetAttributeNValue();
    EXPECT_THAT(parser.events, ElementsAre());
    parser.ParseJSSP();
    EXPECT_THAT(parser.events, ElementsAre("error Not well-formed XML at column 1: the text is "
                                           "empty or ends too early. Nothing from here on is "
                                           "read."));
}

TEST(XmlCallbacks, ExceptionInStartElement_ReachesTheCallerAndEndsTheParse) {
    EXPECT_THAT(ReadUntilThrow("start b", "<a><b/><c/></a>"),
                ElementsAre("start a", "start b", "thrown at start b"));
}

TEST(XmlCallbacks, ExceptionInEndElement_ReachesTheCallerAndEndsTheParse) {
    EXPECT_THAT(ReadUntilThrow("end b", "<a><b/><c/></a>"),
                ElementsAre("start a", "start b", "end b", "thrown at end b"));
}

TEST(XmlCallbacks, ExceptionInCharacters_ReachesTheCallerAndEndsTheParse) {
    EXPECT_THAT(ReadUntilThrow("text [x]", "<a>x<b>y</b></a>"),
                ElementsAre("start a", "text [x]", "thrown at text [x]"));
}

TEST(XmlCallbacks, ExceptionInProcessingInstruction_ReachesTheCallerAndEndsTheParse) {
    EXPECT_THAT(ReadUntilThrow("instruction p q", "<a><?p q?><b/></a>"),
                ElementsAre("start a", "instruction p q", "thrown at instruction p q"));
}

TEST(XmlCallbacks, ExceptionInFatalError_ReachesTheCaller) {
    const std::string error =
        "error Not well-formed XML at column 6: mismatched tag. Nothing from here on is read.";
    EXPECT_THAT(ReadUntilThrow(error, "<a></b>"),
                ElementsAre("start a", error, "thrown at " + error));
}

TEST(XmlCallbacks, SecondParse_BeginsAfreshAfterAnyFirst) {
    RecordingParser parser;
    parser.Read("<a>\n\n<b>lost</c>");
    EXPECT_THAT(parser.Read("<d><e/></d>"),
                ElementsAre("start d", "start e", "end e", "text []", "end d"));
    EXPECT_EQ(parser.GetCurLine(), 1);

    ThrowingParser thrower("start b");
    EXPECT_THROW(thrower.Read("<a><c/>lost<b/></a>"), std::out_of_range);
    EXPECT_THAT(thrower.Read("<d>x</d>"), ElementsAre("start d", "text [x]", "end d"));
}
