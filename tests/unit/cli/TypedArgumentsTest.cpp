#include <cli/Errors.h>
#include <cli/TypedArguments.h>
#include <gtest/gtest.h>
#include <mof/Reader.h>

#include <functional>

namespace cli {
namespace {

const mof::Schema& Schema() {
    static const mof::Schema schema = mof::ReadText(
        "Qualifier Key : boolean = false, Scope(property, reference);\n"
        "Qualifier In : boolean = true, Scope(parameter);\n"
        "Qualifier Out : boolean = false, Scope(parameter);\n"
        "class Base { [Key] string Name; [Key] uint16 Number; string Text;\n"
        "  uint32 Do([In] uint8 Percent, [In] string Words[], [In] Base REF Other,\n"
        "            [In (false), Out] string Result); };\n"
        "class Derived : Base { };\n",
        "test.mof");
    return schema;
}

std::string UsageErrorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const UsageError& error) {
        return error.what();
    }
    return "(none)";
}

std::string ErrorOfArgument(const std::string& argument) {
    return UsageErrorOf([&] { TypedArguments(Schema(), "Derived", "Do", {argument}); });
}

TEST(TypedArguments, KeysInAnyLetterCase_TakeTheDeclaredNameAndType) {
    const auto keys = TypedKeys(Schema(), "DERIVED", {"NAME=x=y", "number=7"});
    ASSERT_EQ(keys.size(), 2U);
    EXPECT_EQ(keys[0].name, "Name");
    EXPECT_EQ(std::get<std::string>(keys[0].value.data), "x=y");
    EXPECT_EQ(keys[1].name, "Number");
    EXPECT_EQ(keys[1].value.type, CMPI_uint16);
    EXPECT_EQ(std::get<std::uint64_t>(keys[1].value.data), 7U);
}

TEST(TypedArguments, PropertyThatIsNoKey_IsRefused) {
    EXPECT_EQ(UsageErrorOf([] { TypedKeys(Schema(), "Base", {"Text=x"}); }),
              "--key: unknown key of Base 'Text'. Known: Name and Number.");
}

TEST(TypedArguments, OptionWithoutAName_IsRefused) {
    EXPECT_EQ(UsageErrorOf([] { TypedKeys(Schema(), "Base", {"x"}); }),
              "--key must have the form NAME=VALUE, not 'x'.");
    EXPECT_EQ(ErrorOfArgument("=5"), "--in must have the form NAME=VALUE, not '=5'.");
}

TEST(TypedArguments, MethodInAnyLetterCase_TypesItsArguments) {
    const auto values = TypedArguments(Schema(), "Derived", "DO", {"percent=100"});
    ASSERT_EQ(values.size(), 1U);
    EXPECT_EQ(values[0].name, "Percent");
    EXPECT_EQ(values[0].value.type, CMPI_uint8);
}

TEST(TypedArguments, ValueOutOfRange_NamesTheArgument) {
    EXPECT_EQ(ErrorOfArgument("Percent=256"), "--in Percent must be of type uint8, not '256'.");
}

TEST(TypedArguments, OutputParameter_CannotBeGiven) {
    EXPECT_EQ(ErrorOfArgument("Result=x"),
              "--in: unknown input parameter of Derived.Do 'Result'. Known: Percent, Words and "
              "Other.");
}

TEST(TypedArguments, RepeatedArrayArgument_IsAnArray) {
    const auto values = TypedArguments(Schema(), "Base", "Do", {"Words=a", "words=b"});
    ASSERT_EQ(values.size(), 1U);
    EXPECT_EQ(values[0].value.type, CMPI_ARRAY | CMPI_string);
    EXPECT_EQ(std::get<std::vector<host::Value>>(values[0].value.data).size(), 2U);
}

TEST(TypedArguments, RepeatedScalar_IsRefused) {
    EXPECT_EQ(UsageErrorOf([] {
                  TypedArguments(Schema(), "Base", "Do", {"Percent=1", "PERCENT=2"});
              }),
              "--in Percent may be given only once.");
}

TEST(TypedArguments, Reference_IsReadFromItsObjectPath) {
    const auto values =
        TypedArguments(Schema(), "Base", "Do", {R"(Other=root/x:Base.Name="a",Number=1)"});
    ASSERT_EQ(values.size(), 1U);
    const auto path = std::get<std::shared_ptr<const host::ObjectPath>>(values[0].value.data);
    EXPECT_EQ(path->className, "Base");
}

TEST(TypedArguments, UnknownClassOrMethod_LeavesTheAnswerToTheHost) {
    EXPECT_EQ(TypedKeys(Schema(), "Nothing", {"A=b"}).at(0).name, "A");
    EXPECT_EQ(TypedArguments(Schema(), "Base", "Nothing", {"A=b"}).at(0).name, "A");
    EXPECT_EQ(TypedArguments(Schema(), "Nothing", "Do", {"A=b"}).at(0).name, "A");
}

}  // namespace
}  // namespace cli
