#include "RecordingParser.h"

using testing::ElementsAre;

TEST(XmlText, BetweenTwoTags_IsReportedOnceBeforeTheSecondTag) {
    EXPECT_THAT(RecordingParser().Read("<a>one <b>two</b></a>"),
                ElementsAre("start a", "text [one ]", "start b", "text [two]", "end b", "text []",
                            "end a"));
}

TEST(XmlText, WhiteSpace_IsReportedAsItStands) {
    EXPECT_THAT(RecordingParser().Read("<a>\n\t <b/> \n</a>"),
                ElementsAre("start a", "text [\n\t ]", "start b", "end b", "text [ \n]", "end a"));
}

TEST(XmlText, LineEndsOfWindows_BecomeNewlines) {
    EXPECT_THAT(RecordingParser().Read("<a>x\r\ny</a>"),
                ElementsAre("start a", "text [x\ny]", "end a"));
}

TEST(XmlText, EmptyRun_IsReportedOnlyAfterAnEndTag) {
    EXPECT_THAT(RecordingParser().Read("<a><b></b><c/></a>"),
                ElementsAre("start a", "start b", "end b", "text []", "start c", "end c", "text []",
                            "end a"));
}

TEST(XmlText, CommentsInstructionsAndCdata_DoNotSplitARun) {
    EXPECT_THAT(RecordingParser().Read("<a>1<!-- no -->2<?do it?>3<![CDATA[<4>]]>5</a>"),
                ElementsAre("start a", "instruction do it", "text [123<4>5]", "end a"));
}

TEST(XmlText, Entities_AreDecodedInTextAndAttributes) {
    EXPECT_THAT(RecordingParser().Read("<!DOCTYPE a [<!ENTITY own 'O&#x4B;'>]>"
                                       "<a v='&lt;&own;&quot;'>&lt;&gt;&amp;&#65;&own;</a>"),
                ElementsAre("start a v=<OK\"", "text [<>&AOK]", "end a"));
}

TEST(XmlText, AttributeValueWithDoubleEscapedBracket_LosesOneEscape) {
    EXPECT_THAT(RecordingParser().Read("<a v='&amp;lt;b'/>"),
                ElementsAre("start a v=&lt;b", "end a"));
}

TEST(XmlText, AroundTheRoot_IsNotReported) {
    EXPECT_THAT(RecordingParser().Read("<?xml version='1.0'?>\n<!-- c -->\n<a>x</a>\n<!-- d -->\n"),
                ElementsAre("start a", "text [x]", "end a"));
}

TEST(XmlText, LongerThanOnePiece_ArrivesWhole) {
    const std::string text(3U << 20U, 'x');
    EXPECT_THAT(RecordingParser().Read("<a>" + text + "</a>"),
                ElementsAre("start a", "text [" + text + "]", "end a"));
}

TEST(XmlText, ManyRunsOverSeveralPieces_ArriveEach) {
    constexpr std::size_t kCount = 200'000;
    std::string document = "<a>";
    for (std::size_t number = 0; number < kCount; ++number) {
        document += "<b>" + std::to_string(number) + "</b>\n";
    }
    RecordingParser parser;
    const std::vector<std::string> events = parser.Read(document + "</a>");
    ASSERT_EQ(events.size(), 2 + kCount * 4);
    for (std::size_t number = 0; number < kCount; ++number) {
        ASSERT_EQ(events[number * 4 + 2], "text [" + std::to_string(number) + "]");
        ASSERT_EQ(parser.lines[number * 4 + 1], static_cast<int>(number) + 1);
    }
}
