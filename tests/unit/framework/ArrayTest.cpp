#include <framework/Array.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

using cimple::Array;
using cimple::String;
using testing::ElementsAre;

namespace {

template <class T>
std::vector<T> elements_of(const Array<T>& array) {
    return std::vector<T>(array.begin(), array.end());
}

const cimple::Array_Traits& traits_of_strings() {
    return cimple::__cim_array_traits[static_cast<std::size_t>(cimple::Type::string)];
}

}  // namespace

TEST(Array, Default_IsEmpty) {
    EXPECT_TRUE(Array<bool>().empty());
    EXPECT_EQ(Array<String>().size(), 0u);
}

TEST(Array, Append_KeepsTheOrder) {
    Array<std::uint16_t> array = {2, 3};
    array.append(5);
    const std::uint16_t more[] = {7, 11};
    array.append(more, 2);
    EXPECT_THAT(elements_of(array), ElementsAre(2, 3, 5, 7, 11));
    EXPECT_EQ(array[2], 5);
}

TEST(Array, AppendToOneCopy_LeavesTheOther) {
    Array<String> first = {"a"};
    const Array<String> second = first;
    EXPECT_EQ(first.begin(), second.begin());
    first.append("b");
    EXPECT_THAT(elements_of(first), ElementsAre("a", "b"));
    EXPECT_THAT(elements_of(second), ElementsAre("a"));
}

TEST(Array, AppendToACopyOfAnEmptyOne_LeavesTheOther) {
    Array<String> first;
    const Array<String> second = first;
    first.append("a");
    EXPECT_TRUE(second.empty());
    EXPECT_TRUE(Array<String>().empty());
}

TEST(Array, AppendOfItsOwnElement_IsSafeWhenItGrows) {
    Array<String> array = {"first"};
    for (int i = 0; i < 100; ++i) array.append(array[0]);
    EXPECT_EQ(array.size(), 101u);
    EXPECT_TRUE(array[100].equal("first"));
}

TEST(Array, Assignment_ReplacesTheElements) {
    Array<bool> array = {true, false};
    const Array<bool> other = {false};
    array = other;
    EXPECT_THAT(elements_of(array), ElementsAre(false));
    array = {};
    EXPECT_TRUE(array.empty());
}

TEST(Array, AssignmentToItself_KeepsTheElements) {
    Array<String> array = {"a"};
    const Array<String>& same = array;
    array = same;
    EXPECT_THAT(elements_of(array), ElementsAre("a"));
}

TEST(Array, EveryType_HasTraitsOfItsSize) {
    std::vector<std::size_t> sizes;
    for (const cimple::Array_Traits& traits : cimple::__cim_array_traits) {
        sizes.push_back(traits.size);
    }
    EXPECT_THAT(sizes, ElementsAre(sizeof(bool), 1, 1, 2, 2, 4, 4, 8, 8, 4, 8, 2, sizeof(String),
                                   sizeof(cimple::Datetime)));
}

TEST(Array, Representation_IsDrivenByItsTraits) {
    cimple::Array_Rep* rep = nullptr;
    cimple::__construct(rep, traits_of_strings());
    const String elements[] = {"a", "b"};
    cimple::__append(rep, elements, 2);
    cimple::Array_Rep* copy = nullptr;
    cimple::__construct(copy, rep);
    cimple::__append(rep, elements, 1);
    EXPECT_EQ(cimple::array_size(rep), 3u);
    EXPECT_EQ(cimple::array_size(copy), 2u);
    cimple::__assign(copy, rep);
    EXPECT_EQ(cimple::array_elements(copy), cimple::array_elements(rep));
    cimple::__destruct(copy);
    cimple::__destruct(rep);
}
