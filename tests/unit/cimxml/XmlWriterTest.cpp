#include <cimxml/codec/XmlWriter.h>
#include <gtest/gtest.h>

namespace cimxml {
namespace {

TEST(XmlWriter, Elements_EndWithTheirScope) {
    XmlWriter xml;
    {
        const auto outer = xml.Open("A", {{"X", "1"}, {"Y", "2", false}});
        xml.TextElement("B", "text");
        xml.EmptyElement("C", {{"Z", ""}});
    }
    EXPECT_EQ(xml.Take(), "<A X=\"1\"><B>text</B><C Z=\"\"/></A>");
}

TEST(XmlWriter, Markup_IsEscaped) {
    XmlWriter xml;
    xml.EmptyElement("A", {{"X", "<\"&>"}});
    xml.Text("a < b & c > d \"e\"");
    EXPECT_EQ(xml.Take(), "<A X=\"&lt;&quot;&amp;&gt;\"/>a &lt; b &amp; c &gt; d &quot;e&quot;");
}

TEST(XmlWriter, WhiteSpace_SurvivesTheReader) {
    XmlWriter xml;
    xml.Text(" a\tb\r\nc ");
    EXPECT_EQ(xml.Take(), " a&#9;b&#13;&#10;c ");
}

TEST(XmlWriter, WhatXmlCannotCarry_IsReplaced) {
    XmlWriter xml;
    xml.Text("\x01gr\xC3\xBC\xDF\xFFx");
    EXPECT_EQ(xml.Take(), "\xEF\xBF\xBDgr\xC3\xBC\xEF\xBF\xBD\xEF\xBF\xBDx");
}

}  // namespace
}  // namespace cimxml
