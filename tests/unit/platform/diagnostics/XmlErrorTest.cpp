#include <filesystem>
#include <fstream>

#include "RecordingParser.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

namespace {

std::string NotWellFormed(int column, const std::string& reason) {
    return "error Not well-formed XML at column " + std::to_string(column) + ": " + reason +
           ". Nothing from here on is read.";
}

constexpr char kEndsEarly[] = "the text is empty or ends too early";

}  // namespace

TEST(XmlError, EmptyDocument_IsReportedOnce) {
    RecordingParser parser;
    EXPECT_THAT(parser.Read(""), ElementsAre(NotWellFormed(1, kEndsEarly)));
    EXPECT_THAT(parser.lines, ElementsAre(1));
    char nothing[] = "";
    RecordingParser other;
    other.Parse(nothing);
    EXPECT_THAT(other.events, ElementsAre(NotWellFormed(1, kEndsEarly)));
}

TEST(XmlError, DocumentCutInText_IsReportedOnItsLastLineWithoutThatText) {
    RecordingParser parser;
    EXPECT_THAT(parser.Read("<a>\n<b>x</b>\n<c>cut"),
                ElementsAre("start a", "text [\n]", "start b", "text [x]", "end b", "text [\n]",
                            "start c", NotWellFormed(7, kEndsEarly)));
    EXPECT_EQ(parser.lines.back(), 3);
}

TEST(XmlError, DocumentCutInATag_IsReportedOnce) {
    EXPECT_THAT(RecordingParser().Read("<a><b"),
                ElementsAre("start a", NotWellFormed(4, "unclosed token")));
}

TEST(XmlError, MismatchedEndTag_IsReportedWithItsLineAndColumn) {
    RecordingParser parser;
    EXPECT_THAT(
        parser.Read("<a>\n <b>lost</c>\n</a>"),
        ElementsAre("start a", "text [\n ]", "start b", NotWellFormed(11, "mismatched tag")));
    EXPECT_EQ(parser.lines.back(), 2);
    EXPECT_EQ(parser.GetCurLine(), 2);
}

TEST(XmlError, TextThatIsNoXml_IsReportedOnce) {
    EXPECT_THAT(RecordingParser().Read("message = 1"),
                ElementsAre(NotWellFormed(1, "syntax error")));
}

TEST(XmlError, TextBehindTheRoot_IsReportedAfterTheRoot) {
    EXPECT_THAT(RecordingParser().Read("<a/>\nrest"),
                ElementsAre("start a", "end a", NotWellFormed(1, "junk after document element")));
}

TEST(XmlError, DuplicateAttribute_IsReported) {
    EXPECT_THAT(RecordingParser().Read("<a b='1' b='2'/>"),
                ElementsAre(NotWellFormed(10, "duplicate attribute")));
}

TEST(XmlError, UndefinedEntity_EndsTheParse) {
    EXPECT_THAT(RecordingParser().Read("<a>x&nbsp;y</a>"),
                ElementsAre("start a", NotWellFormed(5, "undefined entity")));
}

TEST(XmlError, EntityOfAnUnreadDocumentType_IsReportedAndLeftOut) {
    EXPECT_THAT(RecordingParser().Read("<!DOCTYPE a SYSTEM 'a.dtd'><a>x&nbsp;y</a>"),
                ElementsAre("start a", "error The entity nbsp is not declared here and left out.",
                            "text [xy]", "end a"));
}

TEST(XmlError, ExternalEntity_IsReportedAndNeverRead) {
    const auto secret = std::filesystem::path(testing::TempDir()) / "xml_external_entity.txt";
    std::ofstream(secret) << "secret";
    const std::string url = "file://" + secret.string();
    EXPECT_THAT(
        RecordingParser().Read("<!DOCTYPE a [<!ENTITY e SYSTEM '" + url + "'>]><a>x&e;y</a>"),
        ElementsAre("start a", "error The external entity " + url + " is left out.", "text [xy]",
                    "end a"));
    std::filesystem::remove(secret);
}

TEST(XmlError, EntityThatNamesItself_EndsTheParse) {
    EXPECT_THAT(RecordingParser().Read("<!DOCTYPE a [<!ENTITY e '&e;'>]><a>&e;</a>"),
                ElementsAre("start a", NotWellFormed(36, "recursive entity reference")));
}

// Ten levels of ten references each stand for 20 GB of text.
TEST(XmlError, EntitiesThatExpandWithoutEnd_AreStopped) {
    std::string document = "<!DOCTYPE a [<!ENTITY e0 '0123456789abcdefghij'>\n";
    for (int level = 1; level < 10; ++level) {
        const std::string below = "&e" + std::to_string(level - 1) + ";";
        document += "<!ENTITY e" + std::to_string(level) + " '";
        for (int time = 0; time < 10; ++time) {
            document += below;
        }
        document += "'>\n";
    }
    const std::vector<std::string> events = RecordingParser().Read(document + "]><a>&e9;</a>");
    ASSERT_THAT(events, SizeIs(2));
    EXPECT_EQ(events[0], "start a");
    EXPECT_THAT(events[1], StartsWith("error Not well-formed XML at column "));
    EXPECT_THAT(events[1], HasSubstr("limit on input amplification factor"));
}

TEST(XmlError, NulAmongTheText_EndsTheParse) {
    const std::string document("<a>x</a>\0", 9);
    EXPECT_THAT(RecordingParser().Read(document),
                ElementsAre("start a", "text [x]", "end a",
                            NotWellFormed(9, "not well-formed (invalid token)")));
}
