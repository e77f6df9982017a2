#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mof/Reader.h>
#include <mof/generator/Tables.h>

namespace {

TEST(Tables, ClassWithoutMembers_HasNoArrays) {
    const auto schema = mof::ReadText("[Abstract, Association] class A { };", "a.mof");
    EXPECT_THAT(mof::Tables(schema), testing::EndsWith(R"(namespace {
}  // namespace
constinit const cimple::Meta_Class A::static_meta_class = {
    "A", cimple::CLASS_ABSTRACT | cimple::CLASS_ASSOCIATION, nullptr,
    nullptr, 0,
    nullptr, 0,
    sizeof(A), &cimple::construct_as<A>, &cimple::destruct_as<A>, &schemaRepository};

namespace {
constexpr const cimple::Meta_Class* schemaClasses[] = {
    &A::static_meta_class,
};
}  // namespace
constinit const cimple::Meta_Repository schemaRepository = {schemaClasses, 1};
)"));
}

TEST(Tables, OverriddenMethod_HasItsOwnRecord) {
    const auto schema = mof::ReadText(
        "class A { uint32 M(string P); }; class B : A { uint8 M(); }; class C : B { };", "a.mof");
    const auto tables = mof::Tables(schema);
    EXPECT_THAT(tables,
                testing::HasSubstr("A_methods[] = {\n    &A_M_method::static_meta_class,\n}"));
    EXPECT_THAT(tables,
                testing::HasSubstr("B_methods[] = {\n    &B_M_method::static_meta_class,\n}"));
    EXPECT_THAT(tables,
                testing::HasSubstr("C_methods[] = {\n    &B_M_method::static_meta_class,\n}"));
    EXPECT_THAT(tables, testing::HasSubstr(
                            R"(constinit const cimple::Meta_Class B_M_method::static_meta_class = {
    "M", cimple::CLASS_METHOD, nullptr,)"));
}

}  // namespace
