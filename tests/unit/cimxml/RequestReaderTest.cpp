#include <cimxml/codec/ProtocolError.h>
#include <cimxml/codec/RequestReader.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ArrayOf.h"

namespace cimxml {
namespace {

using testing::ElementsAre;

constexpr std::size_t kDepth = 24;

std::string Cim(const std::string& content,
                const std::string& attributes = "CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"") {
    return "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n<CIM " + attributes + ">" + content +
           "</CIM>";
}

std::string Message(const std::string& content) {
    return Cim("<MESSAGE ID=\"7\" PROTOCOLVERSION=\"1.0\">" + content + "</MESSAGE>");
}

std::string Simple(const std::string& content) {
    return Message("<SIMPLEREQ>" + content + "</SIMPLEREQ>");
}

const std::string kPath =
    "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"x\"/></LOCALNAMESPACEPATH>";

std::string Intrinsic(const std::string& parameters) {
    return Simple("<IMETHODCALL NAME=\"Do\">" + kPath + parameters + "</IMETHODCALL>");
}

std::string Extrinsic(const std::string& arguments) {
    return Simple("<METHODCALL NAME=\"Do\"><LOCALCLASSPATH>" + kPath +
                  "<CLASSNAME NAME=\"T_A\"/></LOCALCLASSPATH>" + arguments + "</METHODCALL>");
}

struct Error {
    int status;
    std::string cimError;
    std::string text;

    bool operator==(const Error&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Error& error) {
    return out << error.status << ' ' << error.cimError << ": " << error.text;
}

Error ErrorOf(const std::string& text) {
    try {
        ReadRequest(text, kDepth);
    } catch (const ProtocolError& error) {
        return {error.httpStatus, error.cimError, error.what()};
    }
    return {200, "", ""};
}

Error NotLooselyValid(const std::string& text) { return {400, kNotLooselyValid, text}; }

TEST(RequestReader, IntrinsicCall_IsRead) {
    const Request request = ReadRequest(
        Intrinsic("<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"T_A\"/></IPARAMVALUE>"
                  "<IPARAMVALUE NAME=\"Flag\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
                  "<IPARAMVALUE NAME=\"List\"><VALUE.ARRAY><VALUE>a</VALUE><VALUE> b </VALUE>"
                  "</VALUE.ARRAY></IPARAMVALUE><IPARAMVALUE NAME=\"Null\"/>"
                  "<IPARAMVALUE NAME=\"Odd\"><INSTANCE CLASSNAME=\"T_A\"/></IPARAMVALUE>"),
        kDepth);
    EXPECT_EQ(request.messageId, "7");
    EXPECT_TRUE(request.isIntrinsic);
    EXPECT_EQ(request.method, "Do");
    EXPECT_EQ(request.nameSpace, "root/x");
    ASSERT_EQ(request.parameters.size(), 5U);
    EXPECT_EQ(std::get<ClassName>(request.parameters[0].value).name, "T_A");
    EXPECT_EQ(std::get<std::string>(request.parameters[1].value), "TRUE");
    EXPECT_THAT(std::get<std::vector<std::string>>(request.parameters[2].value),
                ElementsAre("a", " b "));
    EXPECT_TRUE(std::holds_alternative<std::monostate>(request.parameters[3].value));
    EXPECT_TRUE(std::holds_alternative<Unread>(request.parameters[4].value));
}

TEST(RequestReader, InstanceName_HasKeysOfEveryKind) {
    const Request request = ReadRequest(
        Intrinsic(
            "<IPARAMVALUE NAME=\"InstanceName\"><INSTANCENAME CLASSNAME=\"T_A\">"
            "<KEYBINDING NAME=\"S\"><KEYVALUE> a &amp; <![CDATA[<b>]]></KEYVALUE></KEYBINDING>"
            "<KEYBINDING NAME=\"Blank\"><KEYVALUE VALUETYPE=\"string\"> </KEYVALUE></KEYBINDING>"
            "<KEYBINDING NAME=\"B\"><KEYVALUE VALUETYPE=\"boolean\">true</KEYVALUE></KEYBINDING>"
            "<KEYBINDING NAME=\"N\"><KEYVALUE VALUETYPE=\"numeric\">-5</KEYVALUE></KEYBINDING>"
            "<KEYBINDING NAME=\"U\"><KEYVALUE VALUETYPE=\"numeric\">18446744073709551615"
            "</KEYVALUE></KEYBINDING>"
            "<KEYBINDING NAME=\"R\"><VALUE.REFERENCE><INSTANCEPATH><NAMESPACEPATH><HOST>h</HOST>" +
            kPath +
            "</NAMESPACEPATH><INSTANCENAME CLASSNAME=\"T_B\"/></INSTANCEPATH></VALUE.REFERENCE>"
            "</KEYBINDING></INSTANCENAME></IPARAMVALUE>"),
        kDepth);
    const auto& path = std::get<host::ObjectPath>(request.parameters[0].value);
    EXPECT_EQ(path.ToString(),
              "T_A.S=\" a & <b>\",Blank=\" \",B=true,N=-5,U=18446744073709551615,"
              "R=\"root/x:T_B\"");
}

TEST(RequestReader, KeysWithoutNames_AreRead) {
    const Request request =
        ReadRequest(Intrinsic("<IPARAMVALUE NAME=\"InstanceName\"><INSTANCENAME CLASSNAME=\"T_A\">"
                              "<KEYVALUE>v</KEYVALUE></INSTANCENAME></IPARAMVALUE>"),
                    kDepth);
    const auto& path = std::get<host::ObjectPath>(request.parameters[0].value);
    ASSERT_EQ(path.keys.size(), 1U);
    EXPECT_EQ(path.keys[0].name, "");
    EXPECT_EQ(std::get<std::string>(path.keys[0].value.data), "v");
}

TEST(RequestReader, ExtrinsicCall_IsRead) {
    const Request request = ReadRequest(
        Extrinsic("<PARAMVALUE NAME=\"A\" PARAMTYPE=\"uint16\"><VALUE>5</VALUE></PARAMVALUE>"
                  "<PARAMVALUE NAME=\"B\"/>"
                  "<PARAMVALUE NAME=\"C\"><VALUE.ARRAY><VALUE>x</VALUE><VALUE.NULL/></VALUE.ARRAY>"
                  "</PARAMVALUE>"
                  "<PARAMVALUE NAME=\"D\"><VALUE.REFARRAY><VALUE.REFERENCE>"
                  "<CLASSNAME NAME=\"T_B\"/></VALUE.REFERENCE></VALUE.REFARRAY></PARAMVALUE>"),
        kDepth);
    EXPECT_FALSE(request.isIntrinsic);
    EXPECT_EQ(request.nameSpace, "root/x");
    EXPECT_EQ(request.target.ToString(), "root/x:T_A");
    ASSERT_EQ(request.arguments.size(), 4U);
    EXPECT_EQ(std::get<std::string>(request.arguments[0].value.data), "5");
    EXPECT_TRUE(request.arguments[1].value.IsNull());
    const auto& texts = std::get<std::vector<host::Value>>(request.arguments[2].value.data);
    EXPECT_EQ(std::get<std::string>(texts.at(0).data), "x");
    EXPECT_TRUE(texts.at(1).IsNull());
    EXPECT_EQ(request.arguments[3].value.type, ArrayOf(CMPI_ref));
}

TEST(RequestReader, WhatIsNoXml_IsNotWellFormed) {
    EXPECT_EQ(ErrorOf("no XML at all").cimError, kNotWellFormed);
    EXPECT_EQ(ErrorOf("").cimError, kNotWellFormed);
    EXPECT_EQ(ErrorOf("<CIM><MESSAGE></CIM>").cimError, kNotWellFormed);
    EXPECT_EQ(ErrorOf("<CIM>\xFF</CIM>"),
              (Error{400, kNotWellFormed,
                     "The request holds bytes that are not characters of XML in UTF-8."}));
    EXPECT_EQ(ErrorOf("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><CIM/>"),
              (Error{400, kNotWellFormed, "The request is not encoded in UTF-8."}));
}

TEST(RequestReader, WhatIsNearlyXml_IsNotWellFormed) {
    EXPECT_EQ(ErrorOf("<CIM>&a;</CIM>"),
              (Error{400, kNotWellFormed, "The request is not XML: undefined entity, at byte 5."}));
    for (const char* text :
         {"<CIM A=\"&#0;\"/>", "<CIM>a&#0;b</CIM>", "<CIM>&#xD800;</CIM>", "<CIM>a & b</CIM>",
          "<CIM A=\"1\" A=\"2\"/>", "<CIM A=\"<\"/>", "<CIM>]]></CIM>", "text<CIM/>", "<CIM/>text",
          "<CIM/><CIM/>", "<!-- a -- b --><CIM/>", " <?xml version=\"1.0\"?><CIM/>"})
        EXPECT_EQ(ErrorOf(text).cimError, kNotWellFormed) << text;
}

TEST(RequestReader, DeclarationsOfItsOwn_AreRefused) {
    EXPECT_EQ(ErrorOf("<!DOCTYPE CIM [<!ENTITY a \"b\">]><CIM>&a;</CIM>"),
              NotLooselyValid("The request declares document types of its own."));
    EXPECT_EQ(
        ErrorOf("<!DOCTYPE CIM SYSTEM \"CIM_DTD_V20.dtd\">" + Intrinsic("").substr(40)).status,
        200);
}

TEST(RequestReader, EntitiesOfOtherDocuments_AreRefused) {
    const auto with = [](const std::string& name) {
        return ErrorOf("<!DOCTYPE CIM SYSTEM \"file:///etc/hostname\">" +
                       Intrinsic("<IPARAMVALUE NAME=\"" + name + "\"/>").substr(40));
    };
    const Error refused = NotLooselyValid("The request refers to entities of another document.");
    EXPECT_EQ(with("a&b;").text, refused.text);
    EXPECT_EQ(with("a&amp;b&c;"), refused);
    EXPECT_EQ(with("&lt;&gt;&amp;&quot;&apos;&#65;&#x41;").status, 200);
}

TEST(RequestReader, BytesThatNoCharacterHas_AreRefused) {
    for (const char* const bytes :
         {"\x01", "\x0B", "\x1F", "\x80", "\xC0\x80", "\xC1\xBF", "\xC3", "\xE0\x80\x80",
          "\xED\xA0\x80", "\xEF\xBF\xBE", "\xEF\xBF\xBF", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80",
          "\xF8\x88\x80\x80\x80", "\xFF"}) {
        const Error refused{400, kNotWellFormed,
                            "The request holds bytes that are not characters of XML in UTF-8."};
        EXPECT_EQ(ErrorOf("<CIM>" + std::string(bytes) + "</CIM>"), refused);
        EXPECT_EQ(ErrorOf("<CIM A=\"" + std::string(bytes) + "\"/>"), refused);
        EXPECT_EQ(ErrorOf("<CIM><!--" + std::string(bytes) + "--></CIM>"), refused);
    }
    EXPECT_EQ(ErrorOf(std::string("<CIM>\0</CIM>", 12)).cimError, kNotWellFormed);
}

TEST(RequestReader, TextInPieces_IsJoined) {
    const Request request =
        ReadRequest(Intrinsic("<IPARAMVALUE NAME=\"T\"><VALUE>a&lt;b<!-- c -->d<![CDATA[<e>]]>"
                              "\r\n&#13;f</VALUE></IPARAMVALUE>"),
                    kDepth);
    EXPECT_EQ(std::get<std::string>(request.parameters[0].value), "a<bd<e>\n\rf");
}

TEST(RequestReader, NestingBelowTheLimit_IsRefused) {
    std::string open;
    std::string close;
    for (int level = 0; level < 100000; ++level) {
        open += "<a>";
        close += "</a>";
    }
    EXPECT_EQ(ErrorOf(open + close),
              NotLooselyValid("Elements of the request are nested deeper than 24 levels."));
}

TEST(RequestReader, OtherVersions_AreNotImplemented) {
    EXPECT_EQ(
        ErrorOf(Cim("", "CIMVERSION=\"3.0\" DTDVERSION=\"2.0\"")),
        (Error{501, kUnsupportedCimVersion, "This server does not support the CIMVERSION '3.0'."}));
    EXPECT_EQ(
        ErrorOf(Cim("", "CIMVERSION=\"2.8\" DTDVERSION=\"1.1\"")),
        (Error{501, kUnsupportedDtdVersion, "This server does not support the DTDVERSION '1.1'."}));
    EXPECT_EQ(ErrorOf(Cim("<MESSAGE ID=\"1\" PROTOCOLVERSION=\"2.0\"/>")),
              (Error{501, kUnsupportedProtocol,
                     "This server does not support the PROTOCOLVERSION '2.0'."}));
}

TEST(RequestReader, OtherMessages_AreNotImplemented) {
    EXPECT_EQ(ErrorOf(Message("<MULTIREQ/>")),
              (Error{501, kMultipleRequests, "This server takes one request at a time."}));
    EXPECT_EQ(ErrorOf(Message("<SIMPLEEXPREQ/>")),
              (Error{501, kUnsupportedOperation, "This server takes no indications."}));
}

TEST(RequestReader, WhatIsMissing_IsNamed) {
    EXPECT_EQ(ErrorOf("<OTHER/>"),
              NotLooselyValid("The document's root is not the element 'CIM'."));
    EXPECT_EQ(ErrorOf(Cim("", "DTDVERSION=\"2.0\"")),
              NotLooselyValid("The element 'CIM' lacks the attribute 'CIMVERSION'."));
    EXPECT_EQ(ErrorOf(Cim("")), NotLooselyValid("The element 'CIM' lacks the element 'MESSAGE'."));
    EXPECT_EQ(ErrorOf(Cim("<MESSAGE PROTOCOLVERSION=\"1.0\"/>")),
              NotLooselyValid("The element 'MESSAGE' lacks the attribute 'ID'."));
    EXPECT_EQ(ErrorOf(Message("")),
              NotLooselyValid("The element 'MESSAGE' must hold exactly one element."));
    EXPECT_EQ(ErrorOf(Simple("<IMETHODCALL NAME=\"Do\"/>")),
              NotLooselyValid("The element 'IMETHODCALL' lacks the element 'LOCALNAMESPACEPATH'."));
    EXPECT_EQ(ErrorOf(Simple("<IMETHODCALL NAME=\"Do\"><LOCALNAMESPACEPATH/></IMETHODCALL>")),
              NotLooselyValid("The request names no namespace."));
}

TEST(RequestReader, WhatIsMisplaced_IsNamed) {
    EXPECT_EQ(ErrorOf(Message("<OTHER/>")),
              NotLooselyValid("The message holds no request, but the element 'OTHER'."));
    EXPECT_EQ(ErrorOf(Simple("<OTHER/>")),
              NotLooselyValid("The request holds no method call, but the element 'OTHER'."));
    EXPECT_EQ(ErrorOf(Intrinsic("<PARAMVALUE NAME=\"A\"/>")),
              NotLooselyValid("A call of an intrinsic method cannot hold the element "
                              "'PARAMVALUE'."));
    EXPECT_EQ(ErrorOf(Extrinsic("<IPARAMVALUE NAME=\"A\"/>")),
              NotLooselyValid("A method call cannot hold the element 'IPARAMVALUE'."));
    EXPECT_EQ(ErrorOf(Extrinsic("<PARAMVALUE NAME=\"A\"><INSTANCE/></PARAMVALUE>")),
              NotLooselyValid("The element 'INSTANCE' is not a value."));
    EXPECT_EQ(ErrorOf(Extrinsic("<PARAMVALUE NAME=\"A\" EmbeddedObject=\"instance\"><VALUE/>"
                                "</PARAMVALUE>")),
              NotLooselyValid("This server reads no embedded objects as arguments."));
    EXPECT_EQ(ErrorOf(Simple("<METHODCALL NAME=\"Do\"><CLASSNAME NAME=\"A\"/></METHODCALL>")),
              NotLooselyValid("A method call must begin with the path of an instance or class."));
}

TEST(RequestReader, KeyOfAWrongKind_IsNamed) {
    const auto key = [](const std::string& content) {
        return ErrorOf(
            Intrinsic("<IPARAMVALUE NAME=\"I\"><INSTANCENAME CLASSNAME=\"A\">"
                      "<KEYBINDING NAME=\"K\">" +
                      content + "</KEYBINDING></INSTANCENAME></IPARAMVALUE>"));
    };
    EXPECT_EQ(key("<KEYVALUE VALUETYPE=\"numeric\">x</KEYVALUE>"),
              NotLooselyValid("The key value 'x' is not a number."));
    EXPECT_EQ(key("<KEYVALUE VALUETYPE=\"boolean\">1</KEYVALUE>"),
              NotLooselyValid("The key value '1' is neither TRUE nor FALSE."));
    EXPECT_EQ(key("<KEYVALUE VALUETYPE=\"colour\">1</KEYVALUE>"),
              NotLooselyValid("There are no keys of the VALUETYPE 'colour'."));
    EXPECT_EQ(key("<VALUE>1</VALUE>"), NotLooselyValid("A key cannot hold the element 'VALUE'."));
    EXPECT_EQ(key(""), NotLooselyValid("The element 'KEYBINDING' must hold exactly one element."));
    EXPECT_EQ(key("<VALUE.REFERENCE><VALUE/></VALUE.REFERENCE>"),
              NotLooselyValid("The element 'VALUE' is not an object path."));
}

}  // namespace
}  // namespace cimxml
