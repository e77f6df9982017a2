#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mof/Reader.h>
#include <mof/generator/ClassHeader.h>
#include <mof/generator/ValueNames.h>

#include <stdexcept>

namespace {

constexpr const char* kQualifiers =
    "Qualifier ValueMap : string[], Scope(property);\n"
    "Qualifier Values : string[], Scope(property);\n";

mof::Schema WithQualifiers(const std::string& qualifiers) {
    return mof::ReadText(kQualifiers + ("class A { [" + qualifiers + "] uint16 State; };"),
                         "a.mof");
}

std::vector<mof::NamedValue> NamedValuesOf(const std::string& qualifiers) {
    return mof::NamedValues(WithQualifiers(qualifiers).classes[0].properties[0]);
}

TEST(ValueNames, TextsBecomeIdentifiers) {
    const auto named = NamedValuesOf(
        R"(ValueMap {"2", "6", "-1"}, Values {"OK", "Enabled but Offline", "Re-run Job"})");
    ASSERT_EQ(named.size(), 3U);
    EXPECT_EQ(named[0].name, "OK");
    EXPECT_EQ(named[1].name, "EnabledButOffline");
    EXPECT_EQ(named[1].value, "6");
    EXPECT_EQ(named[2].name, "ReRunJob");
    EXPECT_EQ(named[2].value, "-1");
}

TEST(ValueNames, RangesHaveNoName) {
    EXPECT_EQ(NamedValuesOf(R"(ValueMap {"1", "2..9"}, Values {"One", "Vendor"})").size(), 1U);
}

TEST(ValueNames, QualifiersOfDifferentLengthAreRefused) {
    EXPECT_THROW(NamedValuesOf(R"(ValueMap {"1", "2"}, Values {"One"})"), std::runtime_error);
}

TEST(ValueNames, ANameWithoutLettersIsRefused) {
    EXPECT_THROW(NamedValuesOf(R"(ValueMap {"1"}, Values {"-"})"), std::runtime_error);
}

TEST(ValueNames, TheClassHasAConstantForEach) {
    const auto schema = WithQualifiers(R"(ValueMap {"2"}, Values {"Shut Down"})");
    EXPECT_THAT(mof::ClassHeader(schema, schema.classes[0]),
                testing::HasSubstr("static constexpr std::uint16_t State_ShutDown = 2;\n"));
}

}  // namespace
