#include "RecordingParser.h"

using testing::ElementsAre;

namespace {

// ASCII text as UTF-16, with a byte-order mark.
std::string Utf16(const std::string& text, bool bigEndian) {
    std::string bytes;
    const auto add = [&](char high, char low) {
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    };
    add('\xFE', '\xFF');
    for (const char letter : text) {
        add('\0', letter);
    }
    return bytes;
}

}  // namespace

TEST(XmlEncoding, Utf8WithAndWithoutMark_IsTakenAsItIs) {
    const auto expected = ElementsAre("start a", "text [\xC3\xBC]", "end a");
    EXPECT_THAT(RecordingParser().Read("<a>\xC3\xBC</a>"), expected);
    EXPECT_THAT(RecordingParser().Read("\xEF\xBB\xBF<a>\xC3\xBC</a>"), expected);
}

TEST(XmlEncoding, Utf16OfEitherByteOrder_BecomesUtf8) {
    const auto expected = ElementsAre("start a", "text [x\xC3\xBC]", "end a");
    EXPECT_THAT(RecordingParser().Read(Utf16("<a>x&#xFC;</a>", true)), expected);
    EXPECT_THAT(RecordingParser().Read(Utf16("<a>x&#xFC;</a>", false)), expected);
}

TEST(XmlEncoding, Latin1_BecomesUtf8) {
    EXPECT_THAT(RecordingParser().Read("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xFC</a>"),
                ElementsAre("start a", "text [\xC3\xBC]", "end a"));
}

TEST(XmlEncoding, AnyOther_IsRefusedByItsName) {
    RecordingParser parser;
    EXPECT_THAT(parser.Read("<?xml version='1.0' encoding='windows-1252'?><a>\xFC</a>"),
                ElementsAre("error Not well-formed XML at column 31: the encoding windows-1252 is "
                            "not supported (use UTF-8, UTF-16, ISO-8859-1 or US-ASCII). Nothing "
                            "from here on is read."));
    EXPECT_EQ(parser.GetCurLine(), 1);
}

TEST(XmlEncoding, BytesThatAreNoUtf8_EndTheParse) {
    EXPECT_THAT(RecordingParser().Read("<a>x\xFCy</a>"),
                ElementsAre("start a",
                            "error Not well-formed XML at column 5: the byte 0xFC does not fit the "
                            "encoding (UTF-8, if the first line names no other). Nothing from here "
                            "on is read."));
}

TEST(XmlEncoding, ByteThatIsNoUtf8InAnAttribute_IsNamed) {
    EXPECT_THAT(RecordingParser().Read("<a b='gest\xF6rt'/>"),
                ElementsAre("error Not well-formed XML at column 11: the byte 0xF6 does not fit "
                            "the encoding (UTF-8, if the first line names no other). Nothing from "
                            "here on is read."));
}

TEST(XmlEncoding, WrongByteBehindSeveralPieces_IsNamed) {
    const std::string text(3U << 20U, 'x');
    EXPECT_THAT(RecordingParser().Read("<a>" + text + "\x80</a>"),
                ElementsAre("start a",
                            "error Not well-formed XML at column 3145732: the byte 0x80 does not "
                            "fit the encoding (UTF-8, if the first line names no other). Nothing "
                            "from here on is read."));
}

TEST(XmlEncoding, AsciiCharacterThatFitsNowhere_IsAnInvalidToken) {
    EXPECT_THAT(RecordingParser().Read("<a>x & y</a>"),
                ElementsAre("start a",
                            "error Not well-formed XML at column 7: not well-formed (invalid "
                            "token). Nothing from here on is read."));
}
