#include <gtest/gtest.h>

#include "Classes.h"

using namespace cimple;

namespace {

const Meta_Class* const device = &ACME_Device::static_meta_class;
const Meta_Class* const fan = &ACME_Fan::static_meta_class;
const Meta_Class* const cools = &ACME_Cools::static_meta_class;

}  // namespace

TEST(MetaClass, ClassAndItsDescendants_AreSubclasses) {
    EXPECT_TRUE(is_subclass(device, device));
    EXPECT_TRUE(is_subclass(device, fan));
    EXPECT_FALSE(is_subclass(fan, device));
    EXPECT_FALSE(is_subclass(device, cools));
}

TEST(MetaClass, Null_IsNoClass) {
    EXPECT_FALSE(is_subclass(device, nullptr));
    EXPECT_FALSE(is_subclass(nullptr, device));
    EXPECT_FALSE(is_subclass(nullptr, nullptr));
}

TEST(MetaClass, Class_IsFoundInAnyLetterCase) {
    EXPECT_EQ(find_class(*fan->repository, "acme_FAN"), fan);
    EXPECT_EQ(find_class(*fan->repository, "ACME_Pump"), nullptr);
}

TEST(MetaClass, Feature_IsFoundInAnyLetterCase) {
    ASSERT_NE(find_feature(*fan, "sLOT"), nullptr);
    EXPECT_STREQ(find_feature(*fan, "sLOT")->name, "Slot");
    EXPECT_EQ(find_feature(*fan, "Colour"), nullptr);
}

TEST(MetaClass, Method_IsFoundInAnyLetterCase) {
    EXPECT_EQ(find_method(*fan, "reset"), &ACME_Fan_Reset_method::static_meta_class);
    EXPECT_EQ(find_method(*fan, "Explode"), nullptr);
    EXPECT_EQ(find_method(*device, "Reset"), nullptr);
}
