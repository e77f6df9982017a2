#include <catalog/TXElement.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

static_assert(std::has_virtual_destructor_v<TXElement>);

namespace {

// An element with something in every field.
TXElement Filled() {
    TXElement element("name");
    element.SetIndex(9);
    element.SetValue("value");
    element.AddValue("first");
    element.AddValue("second");
    element.AddValue(7, "seven");
    return element;
}

}  // namespace

TEST(TXElement, New_IsEmptyWithIndexZero) {
    const TXElement element;
    EXPECT_EQ(element.GetPropertyName(), "");
    EXPECT_EQ(element.GetValue(), "");
    EXPECT_EQ(element.GetIndex(), 0);
    EXPECT_EQ(element.GetSizeOfValueArray(), 0U);
    EXPECT_EQ(element.GetSizeOfValueMap(), 0U);
}

TEST(TXElement, NewWithName_HasTheNameOnly) {
    const TXElement element("message");
    EXPECT_EQ(element.GetPropertyName(), "message");
    EXPECT_EQ(element.GetValue(), "");
    EXPECT_EQ(element.GetIndex(), 0);
    EXPECT_THAT(element.GetValueArray(), IsEmpty());
    EXPECT_THAT(element.GetValueMap(), IsEmpty());
}

TEST(TXElement, SetNameAndValue_ReplaceTheFormerOnes) {
    TXElement element = Filled();
    element.SetPropertyName("other");
    element.SetValue("new");
    EXPECT_EQ(element.GetPropertyName(), "other");
    EXPECT_EQ(element.GetValue(), "new");
}

TEST(TXElement, Index_IsWhatWasSetUntilReset) {
    TXElement element;
    element.SetIndex(65535);
    EXPECT_EQ(element.GetIndex(), 65535);
    EXPECT_TRUE(element.IsIndex(65535));
    EXPECT_FALSE(element.IsIndex(0));
    element.ResetIndex();
    EXPECT_TRUE(element.IsIndex(0));
}

TEST(TXElement, ValueFromMap_MissingKey_IsEmptyAndLeavesTheMapUnchanged) {
    TXElement element;
    element.AddValue(6, "six");
    EXPECT_EQ(element.GetValueFromMap(7), "");
    EXPECT_THAT(element.GetValueMap(), ElementsAre(Pair(6, "six")));
    EXPECT_EQ(element.GetValueFromMap(6), "six");
}

TEST(TXElement, ValueFromArray_PositionAtItsSize_IsEmpty) {
    const TXElement element = Filled();
    EXPECT_EQ(element.GetValueFromArray(0), "first");
    EXPECT_EQ(element.GetValueFromArray(1), "second");
    EXPECT_EQ(element.GetValueFromArray(2), "");
    EXPECT_EQ(element.GetValueFromArray(~0UL), "");
}

TEST(TXElement, AddValue_ToTheArray_KeepsOrderAndDuplicates) {
    TXElement element;
    element.AddValue("b");
    element.AddValue("a");
    element.AddValue("b");
    EXPECT_THAT(element.GetValueArray(), ElementsAre("b", "a", "b"));
    EXPECT_EQ(element.GetSizeOfValueArray(), 3U);
}

TEST(TXElement, AddValue_SecondUnderAKey_LeavesTheFirst) {
    TXElement element;
    element.AddValue(3, "a");
    element.AddValue(3, "b");
    element.AddValue(std::pair<unsigned short, std::string>(3, "c"));
    EXPECT_THAT(element.GetValueMap(), ElementsAre(Pair(3, "a")));
}

TEST(TXElement, AddValue_AsPairAndEmpty_IsInsertedInKeyOrder) {
    TXElement element;
    element.AddValue(std::pair<unsigned short, std::string>(2, "two"));
    element.AddValue(1, "");
    EXPECT_THAT(element.GetValueMap(), ElementsAre(Pair(1, ""), Pair(2, "two")));
    EXPECT_EQ(element.GetSizeOfValueMap(), 2U);
}

TEST(TXElement, SetValueMap_EmptyValue_IsSkipped) {
    TXElement element;
    element.SetValueMap({{1, ""}, {2, "x"}});
    EXPECT_THAT(element.GetValueMap(), ElementsAre(Pair(2, "x")));
}

TEST(TXElement, SetValueMap_KeyAlreadyThere_KeepsItsValueAndTheOtherFields) {
    TXElement element = Filled();
    element.SetValueMap({{7, "new"}, {8, "eight"}});
    EXPECT_THAT(element.GetValueMap(), ElementsAre(Pair(7, "seven"), Pair(8, "eight")));
    EXPECT_EQ(element.GetIndex(), 9);
    EXPECT_EQ(element.GetValue(), "value");
    EXPECT_EQ(element.GetSizeOfValueArray(), 2U);
}

TEST(TXElement, SetValueArray_AppendsAllInOrder) {
    TXElement element;
    element.AddValue("a");
    element.SetValueArray({"c", "b", ""});
    EXPECT_THAT(element.GetValueArray(), ElementsAre("a", "c", "b", ""));
}

TEST(TXElement, Clear_OfOneField_LeavesTheOthers) {
    TXElement element = Filled();
    element.ClearValue();
    EXPECT_EQ(element.GetValue(), "");
    EXPECT_EQ(element.GetSizeOfValueArray(), 2U);
    element.ClearValueArray();
    EXPECT_THAT(element.GetValueArray(), IsEmpty());
    EXPECT_EQ(element.GetSizeOfValueMap(), 1U);
    element.ClearValueMap();
    EXPECT_THAT(element.GetValueMap(), IsEmpty());
    EXPECT_EQ(element.GetIndex(), 9);
}

TEST(TXElement, ClearAll_KeepsThePropertyNameOnly) {
    TXElement element = Filled();
    element.ClearAll();
    EXPECT_EQ(element.GetPropertyName(), "name");
    EXPECT_EQ(element.GetIndex(), 0);
    EXPECT_EQ(element.GetValue(), "");
    EXPECT_THAT(element.GetValueArray(), IsEmpty());
    EXPECT_THAT(element.GetValueMap(), IsEmpty());
}

TEST(TXElement, Assignment_ReplacesEveryField) {
    TXElement target("old");
    target.AddValue("old");
    target.AddValue(1, "old");
    target = Filled();
    EXPECT_EQ(target.GetPropertyName(), "name");
    EXPECT_EQ(target.GetIndex(), 9);
    EXPECT_EQ(target.GetValue(), "value");
    EXPECT_THAT(target.GetValueArray(), ElementsAre("first", "second"));
    EXPECT_THAT(target.GetValueMap(), ElementsAre(Pair(7, "seven")));
}

TEST(TXElement, Assignment_LosesEmptyMapValuesThatACopyKeeps) {
    TXElement source;
    source.AddValue(5, "");
    TXElement target;
    target = source;
    const TXElement copy(source);
    EXPECT_THAT(target.GetValueMap(), IsEmpty());
    EXPECT_THAT(copy.GetValueMap(), ElementsAre(Pair(5, "")));
}

TEST(TXElement, AssignmentToItself_ChangesNothing) {
    TXElement element = Filled();
    element.AddValue(5, "");
    const TXElement& same = element;
    element = same;
    EXPECT_EQ(element.GetPropertyName(), "name");
    EXPECT_THAT(element.GetValueArray(), ElementsAre("first", "second"));
    EXPECT_THAT(element.GetValueMap(), ElementsAre(Pair(5, ""), Pair(7, "seven")));
}
