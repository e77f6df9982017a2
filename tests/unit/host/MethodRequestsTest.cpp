#include "HostFixture.h"
#include "Values.h"

namespace host {
namespace {

class MethodRequestsTest : public HostTest {
protected:
    MethodResult Call(const std::string& method, const std::vector<NamedValue>& arguments = {}) {
        return host.InvokeMethod(PathTo("T_Thing", "one"), method, arguments);
    }
};

TEST_F(MethodRequestsTest, Method_GetsTargetAndArguments) {
    const MethodResult result = Call("Echo", {{"Text", Text("hello")}});
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    EXPECT_EQ(result.returnValue.type, CMPI_uint32);
    EXPECT_EQ(std::get<std::uint64_t>(result.returnValue.data), 1U);
    ASSERT_EQ(result.out.size(), 2U);
    EXPECT_EQ(std::get<std::string>(FindValue(result.out, "Text")->data), "hello");
    EXPECT_EQ(std::get<std::string>(FindValue(result.out, "Heard")->data),
              "root/test:T_Thing.Name=\"one\"");
}

TEST_F(MethodRequestsTest, ArgumentsAsText_AreTypedByTheClass) {
    const MethodResult result =
        Call("Echo", {{"number", Text("7")},
                      {"When", Text("00000001000000.000000:000")},
                      {"Other", Text("root/test:T_Thing.Name=\"two\"")},
                      {"Numbers", {CMPI_ARRAY | CMPI_string, std::vector<Value>{Text("1")}}},
                      {"Text", {CMPI_null, {}}}});
    ASSERT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    const Value* const number = FindValue(result.out, "Number");
    ASSERT_TRUE(number);
    EXPECT_EQ(number->type, CMPI_uint16);
    EXPECT_EQ(std::get<std::uint64_t>(number->data), 7U);
    EXPECT_EQ(FindValue(result.out, "When")->type, CMPI_dateTime);
    EXPECT_EQ(std::get<std::string>(FindValue(result.out, "When")->data),
              "00000001000000.000000:000");
    EXPECT_EQ(FindValue(result.out, "Other")->type, CMPI_ref);
    EXPECT_EQ(std::get<std::shared_ptr<const ObjectPath>>(FindValue(result.out, "Other")->data)
                  ->ToString(),
              "root/test:T_Thing.Name=\"two\"");
    EXPECT_EQ(FindValue(result.out, "Numbers")->type, CMPI_ARRAY | CMPI_uint16);
    EXPECT_TRUE(FindValue(result.out, "Text")->IsNull());
    EXPECT_EQ(FindValue(result.out, "Text")->type, CMPI_string);
}

TEST_F(MethodRequestsTest, ArgumentOfAWrongType_IsRefused) {
    EXPECT_THAT(Call("Echo", {{"number", Text("65536")}}).status,
                IsFailure(CMPI_RC_ERR_TYPE_MISMATCH,
                          "The value of the parameter 'Number' of the method 'Echo' is of a wrong "
                          "type."));
}

TEST_F(MethodRequestsTest, UnknownArgument_IsRefused) {
    EXPECT_THAT(
        Call("echo", {{"Colour", Text("red")}}).status,
        IsFailure(CMPI_RC_ERR_INVALID_PARAMETER, "The method 'Echo' has no parameter 'Colour'."));
}

TEST_F(MethodRequestsTest, KeysAsText_AreTypedByTheClass) {
    ObjectPath path = PathTo("T_MethodOnly", "x");
    path.keys.push_back({"name", {CMPI_string, std::string("y")}});
    const MethodResult result = host.InvokeMethod(path, "Echo", {});
    EXPECT_EQ(std::get<std::string>(FindValue(result.out, "Heard")->data),
              "root/test:T_MethodOnly.Name=\"x\",name=\"y\"");
}

TEST_F(MethodRequestsTest, MethodThatTheClassLacks_IsJudgedByTheProvider) {
    EXPECT_THAT(Call("Explode", {{"Any", Text("x")}}).status,
                IsFailure(CMPI_RC_ERR_METHOD_NOT_FOUND, "A thing has no such method."));
}

TEST_F(MethodRequestsTest, MethodName_ReachesTheProviderAsTheClientWroteIt) {
    EXPECT_THAT(Call("ECHO").status,
                IsFailure(CMPI_RC_ERR_METHOD_NOT_FOUND, "A thing has no such method."));
}

TEST_F(MethodRequestsTest, ProviderWithoutMethodInterface_IsAnswered) {
    EXPECT_THAT(host.InvokeMethod(PathTo("T_Widget", "three"), "Echo", {}).status,
                IsFailure(CMPI_RC_ERR_NOT_SUPPORTED,
                          "The provider of the class 'T_Widget' has no method interface."));
}

TEST_F(MethodRequestsTest, UnknownClass_IsAnswered) {
    EXPECT_THAT(host.InvokeMethod(PathTo("T_Nothing"), "Echo", {}).status,
                IsFailure(CMPI_RC_ERR_INVALID_CLASS,
                          "There is no class 'T_Nothing' in the namespace 'root/test'."));
}

TEST_F(MethodRequestsTest, ErrorWithText_IsQuoted) {
    EXPECT_THAT(Call("Fail").status,
                IsFailure(CMPI_RC_ERR_ACCESS_DENIED, "The thing's owner says no."));
}

TEST_F(MethodRequestsTest, ErrorWithoutText_NamesTheProvider) {
    EXPECT_THAT(Call("FailSilently").status,
                IsFailure(CMPI_RC_ERR_FAILED,
                          "The provider 'T_Thing_Provider' answered with code 1 and without a "
                          "text."));
}

TEST_F(MethodRequestsTest, Exception_BecomesAFailure) {
    EXPECT_THAT(Call("Throw").status,
                IsFailure(CMPI_RC_ERR_FAILED,
                          "The provider 'T_Thing_Provider' threw an exception: the thing broke."));
    EXPECT_THAT(Call("ThrowNumber").status,
                IsFailure(CMPI_RC_ERR_FAILED,
                          "The provider 'T_Thing_Provider' threw something that is no exception."));
    EXPECT_THAT(Call("Count").status, IsFailure(CMPI_RC_OK, ""));
}

TEST_F(MethodRequestsTest, ResultAfterDone_IsRefused) {
    EXPECT_THAT(Call("ReturnTwice").status,
                IsFailure(CMPI_RC_ERR_FAILED, "The result was declared done already."));
}

TEST_F(MethodRequestsTest, NoReturnValue_IsNull) {
    const MethodResult result = Call("ReturnNothing");
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    EXPECT_TRUE(result.returnValue.IsNull());
}

}  // namespace
}  // namespace host
