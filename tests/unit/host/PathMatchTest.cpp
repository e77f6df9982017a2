#include <gtest/gtest.h>
#include <host/requests/PathMatch.h>

namespace host {
namespace {

ObjectPath Path(const std::string& text) { return ParseObjectPath(text).value(); }

bool Match(const std::string& a, const std::string& b) {
    const bool matches = SameObject(Path(a), Path(b));
    EXPECT_EQ(matches, SameObject(Path(b), Path(a))) << a << " and " << b;
    return matches;
}

TEST(SameObject, NamesInAnyCase_AreTheSame) {
    EXPECT_TRUE(Match("root/a:B.C=\"d\",E=1", "ROOT/A:b.e=1,c=\"d\""));
}

TEST(SameObject, StringsInAnotherCase_Differ) { EXPECT_FALSE(Match("B.C=\"d\"", "B.C=\"D\"")); }

TEST(SameObject, OtherNameSpace_Differs) {
    EXPECT_FALSE(Match("root/a:B.C=1", "root/b:B.C=1"));
    EXPECT_TRUE(Match("root/a:B.C=1", "B.C=1"));
}

TEST(SameObject, OtherClassOrKeys_Differ) {
    EXPECT_FALSE(Match("B.C=1", "D.C=1"));
    EXPECT_FALSE(Match("B.C=1", "B.C=2"));
    EXPECT_FALSE(Match("B.C=1", "B.C=1,D=2"));
    EXPECT_FALSE(Match("B.C=1", "B.D=1"));
    EXPECT_FALSE(Match("B.C=1", "B.C=\"1\""));
    EXPECT_FALSE(Match("B.C=true", "B.C=false"));
}

TEST(SameObject, MissingNullAndEmptyKeys_AreTheSame) {
    EXPECT_TRUE(Match("B.C=1,D=\"\"", "B.C=1"));
    ObjectPath withNull = Path("B.C=1");
    withNull.keys.push_back({"D", {CMPI_string, {}}});
    EXPECT_TRUE(SameObject(withNull, Path("B.C=1,D=\"\"")));
    EXPECT_FALSE(SameObject(withNull, Path("B.C=1,D=\"x\"")));
}

TEST(SameObject, IntegersOfOtherWidth_AreComparedByValue) {
    const auto withKey = [](Value value) { return ObjectPath{"", "B", {{"C", std::move(value)}}}; };
    const ObjectPath narrow = withKey({CMPI_uint8, std::uint64_t{5}});
    EXPECT_TRUE(SameObject(narrow, withKey({CMPI_sint64, std::int64_t{5}})));
    EXPECT_FALSE(SameObject(withKey({CMPI_uint64, ~std::uint64_t{0}}),
                            withKey({CMPI_sint64, std::int64_t{-1}})));
}

TEST(SameObject, References_AreComparedAsObjects) {
    const auto to = [](const std::string& text) {
        return ObjectPath{
            "", "B", {{"C", {CMPI_ref, std::make_shared<const ObjectPath>(Path(text))}}}};
    };
    EXPECT_TRUE(SameObject(to("root/a:X.Y=1"), to("root/a:x.y=1")));
    EXPECT_FALSE(SameObject(to("root/a:X.Y=1"), to("root/a:X.Y=2")));
}

}  // namespace
}  // namespace host
