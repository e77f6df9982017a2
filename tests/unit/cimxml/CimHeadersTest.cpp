#include <cimxml/codec/ProtocolError.h>
#include <cimxml/http/CimHeaders.h>
#include <gtest/gtest.h>

namespace cimxml {
namespace {

constexpr const char* kMan = "http://www.dmtf.org/cim/mapping/http/v1.0 ; ns=73";

HttpRequest Post(const Headers& headers) { return {"POST", "/cimom", false, headers, ""}; }

std::string ErrorOf(const HttpRequest& http) {
    try {
        CimHeaders(http).CheckOperation();
    } catch (const ProtocolError& error) {
        return std::to_string(error.httpStatus) + " " + error.cimError + ": " + error.what();
    }
    return "";
}

std::string MismatchOf(const HttpRequest& http, const Request& request) {
    try {
        CimHeaders(http).CheckAgainst(request);
    } catch (const ProtocolError& error) {
        EXPECT_EQ(error.httpStatus, 400);
        EXPECT_EQ(error.cimError, "header-mismatch");
        return error.what();
    }
    return "";
}

const Request kIntrinsic{"1", true, "GetClass", "root/QUVSD"};
const Request kExtrinsic{"1", false, "Run", "root/QUVSD", {}, {"root/QUVSD", "T_A", {}}, {}};

TEST(CimHeaders, MethodCall_IsAccepted) {
    EXPECT_EQ(ErrorOf(Post({{"cimoperation", "methodcall"}})), "");
    EXPECT_EQ(ErrorOf(Post({{"CIMOperation", "MethodCall"}, {"CIMProtocolVersion", "1.0"}})), "");
}

TEST(CimHeaders, OtherOperation_IsRefused) {
    EXPECT_EQ(ErrorOf(Post({})),
              "400 unsupported-operation: The request lacks the header 'CIMOperation'.");
    EXPECT_EQ(ErrorOf(Post({{"CIMOperation", "Dance"}})),
              "501 unsupported-operation: This server does not know the CIMOperation 'Dance'.");
    EXPECT_EQ(ErrorOf(Post({{"CIMOperation", "MethodCall"}, {"CIMBatch", ""}})),
              "501 multiple-requests-unsupported: This server takes one request at a time.");
    EXPECT_EQ(ErrorOf(Post({{"CIMOperation", "MethodCall"}, {"CIMProtocolVersion", "2.0"}})),
              "501 unsupported-protocol-version: This server does not support the "
              "CIMProtocolVersion '2.0'.");
}

TEST(CimHeaders, ExtendedPost_HasPrefixedHeaders) {
    const HttpRequest http{
        "M-POST", "/cimom", false, {{"Man", kMan}, {"73-CIMOperation", "MethodCall"}}, ""};
    EXPECT_EQ(ErrorOf(http), "");
    EXPECT_EQ(CimHeaders(http).Number(), "73");
}

TEST(CimHeaders, ExtendedPostWithoutExtension_IsNotExtended) {
    for (const char* man :
         {"", "http://other ; ns=73", "http://www.dmtf.org/cim/mapping/http/v1.0"}) {
        const HttpRequest http{"M-POST", "/cimom", false, {{"Man", man}}, ""};
        try {
            const CimHeaders headers(http);
            ADD_FAILURE() << man;
        } catch (const HttpError& error) {
            EXPECT_EQ(error.status, 510);
        }
    }
}

TEST(CimHeaders, HeadersThatAgree_AreAccepted) {
    EXPECT_EQ(
        MismatchOf(Post({{"CIMMethod", "getclass"}, {"CIMObject", "root/quvsd"}}), kIntrinsic), "");
    EXPECT_EQ(
        MismatchOf(Post({{"CIMMethod", "GetClass"}, {"CIMObject", "/root%2FQUVSD"}}), kIntrinsic),
        "");
    EXPECT_EQ(MismatchOf(Post({{"CIMMethod", "Run"}, {"CIMObject", "root/QUVSD:T_A"}}), kExtrinsic),
              "");
    EXPECT_EQ(MismatchOf(Post({{"CIMMethod", "Run"},
                               {"CIMObject", "root%2FQUVSD%3AT_A.Name%3D%22a.b%22,X=1"}}),
                         kExtrinsic),
              "");
}

TEST(CimHeaders, HeadersThatDisagree_AreAMismatch) {
    EXPECT_EQ(MismatchOf(Post({{"CIMObject", "root/QUVSD"}}), kIntrinsic),
              "The request lacks the header 'CIMMethod' or 'CIMObject'.");
    EXPECT_EQ(MismatchOf(Post({{"CIMMethod", "GetClass"}}), kIntrinsic),
              "The request lacks the header 'CIMMethod' or 'CIMObject'.");
    EXPECT_EQ(MismatchOf(Post({{"CIMMethod", "Other"}, {"CIMObject", "root/QUVSD"}}), kIntrinsic),
              "The header 'CIMMethod' names the method 'Other', the document 'GetClass'.");
    EXPECT_EQ(MismatchOf(Post({{"CIMMethod", "GetClass"}, {"CIMObject", "root"}}), kIntrinsic),
              "The header 'CIMObject' names 'root', the document 'root/QUVSD'.");
    EXPECT_EQ(MismatchOf(Post({{"CIMMethod", "Run"}, {"CIMObject", "root/QUVSD:T_B"}}), kExtrinsic),
              "The header 'CIMObject' names 'root/QUVSD:T_B', the document 'root/QUVSD:T_A'.");
}

}  // namespace
}  // namespace cimxml
