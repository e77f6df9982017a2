#include <cimxml/operations/Parameters.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <host/Status.h>

namespace cimxml {
namespace {

using testing::ElementsAre;

const ParameterNames kNames = {"Flag", "Name", "List", "ClassName", "Path"};

Request With(std::vector<Parameter> parameters) {
    return {.messageId = "1", .method = "Do", .nameSpace = "root", .parameters = parameters};
}

template <class Action>
std::string ErrorOf(const std::vector<Parameter>& parameters, const Action& action) {
    try {
        const Request request = With(parameters);
        action(Parameters(request, kNames));
    } catch (const host::Failure& failure) {
        EXPECT_EQ(failure.status.code, CMPI_RC_ERR_INVALID_PARAMETER);
        return failure.status.text;
    }
    return "";
}

constexpr auto kNothing = [](const Parameters&) {};

TEST(Parameters, Values_AreFoundInAnyLetterCase) {
    const Request request = With({{"FLAG", std::string("True")},
                                  {"name", std::string("n")},
                                  {"LIST", std::vector<std::string>{"a", "b"}},
                                  {"classname", ClassName{"T_A"}},
                                  {"path", host::ObjectPath{"", "T_B", {}}}});
    const Parameters parameters(request, kNames);
    EXPECT_TRUE(parameters.Flag("Flag", false));
    EXPECT_EQ(parameters.Text("Name"), "n");
    EXPECT_EQ(parameters.Filter("Name"), "n");
    EXPECT_THAT(*parameters.Texts("List"), ElementsAre("a", "b"));
    EXPECT_EQ(parameters.Class("ClassName"), "T_A");
    EXPECT_EQ(parameters.RequiredInstance("Path").className, "T_B");
    EXPECT_FALSE(parameters.RequiredObject("Path").isClass);
    EXPECT_TRUE(parameters.RequiredObject("ClassName").isClass);
}

TEST(Parameters, NullAndAbsentOnes_HaveTheirDefaults) {
    const Request request = With({{"Flag", std::monostate{}}, {"List", std::monostate{}}});
    const Parameters parameters(request, kNames);
    EXPECT_TRUE(parameters.Flag("Flag", true));
    EXPECT_FALSE(parameters.Texts("List"));
    EXPECT_EQ(parameters.Class("ClassName"), "");
    EXPECT_EQ(parameters.Filter("Name"), "");
}

TEST(Parameters, UnknownOne_IsInvalid) {
    EXPECT_EQ(ErrorOf({{"Colour", std::string("red")}}, kNothing),
              "The operation 'Do' has no parameter 'Colour'.");
}

TEST(Parameters, OneGivenTwice_IsInvalid) {
    EXPECT_EQ(ErrorOf({{"Name", std::string("a")}, {"NAME", std::string("b")}}, kNothing),
              "The parameter 'NAME' is given twice.");
}

TEST(Parameters, MissingOne_IsInvalid) {
    EXPECT_EQ(ErrorOf({}, [](const Parameters& all) { all.Text("Name"); }),
              "The parameter 'Name' is missing.");
    EXPECT_EQ(ErrorOf({}, [](const Parameters& all) { all.RequiredClass("ClassName"); }),
              "The parameter 'ClassName' is missing.");
    EXPECT_EQ(ErrorOf({}, [](const Parameters& all) { all.RequiredObject("Path"); }),
              "The parameter 'Path' is missing.");
}

TEST(Parameters, OneOfAnotherKind_IsInvalid) {
    EXPECT_EQ(ErrorOf({{"Flag", ClassName{"T_A"}}},
                      [](const Parameters& all) { all.Flag("Flag", true); }),
              "The parameter 'Flag' is not a boolean.");
    EXPECT_EQ(ErrorOf({{"Flag", std::string("1")}},
                      [](const Parameters& all) { all.Flag("Flag", true); }),
              "The parameter 'Flag' is neither TRUE nor FALSE.");
    EXPECT_EQ(ErrorOf({{"ClassName", std::string("T_A")}},
                      [](const Parameters& all) { all.Class("ClassName"); }),
              "The parameter 'ClassName' is not the name of a class.");
    EXPECT_EQ(
        ErrorOf({{"Path", Unread{}}}, [](const Parameters& all) { all.RequiredInstance("Path"); }),
        "The parameter 'Path' is not the name of an instance.");
    EXPECT_EQ(
        ErrorOf({{"List", std::string("a")}}, [](const Parameters& all) { all.Texts("List"); }),
        "The parameter 'List' is not an array of texts.");
}

}  // namespace
}  // namespace cimxml
