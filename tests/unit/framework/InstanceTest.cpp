#include <framework/Instance_Ptr.h>
#include <framework/visit.h>
#include <gtest/gtest.h>

#include <new>
#include <thread>
#include <vector>

#include "Classes.h"

using namespace cimple;

namespace {

class InstanceTest : public testing::Test {
protected:
    ~InstanceTest() override { EXPECT_EQ(instance_count(), before); }

    std::uint64_t before = instance_count();
};

Instance* fail_to_construct(void*) { throw std::bad_alloc(); }

}  // namespace

TEST_F(InstanceTest, Create_MakesEveryPropertyNull) {
    auto* fan = create<ACME_Fan>();
    EXPECT_EQ(fan->meta_class, &ACME_Fan::static_meta_class);
    EXPECT_EQ(fan->count, 1u);
    EXPECT_TRUE(fan->name_space.empty());
    for (const Meta_Feature& feature : features_of(*fan->meta_class)) {
        EXPECT_TRUE(is_null_at(*fan, feature)) << feature.name;
    }
    destroy(fan);
}

TEST_F(InstanceTest, Count_KeepsTheInstanceUntilTheLastIsDropped) {
    auto* fan = create<ACME_Fan>();
    ref(fan);
    unref(fan);
    EXPECT_EQ(instance_count(), before + 1);
    unref(fan);
    EXPECT_EQ(instance_count(), before);
}

TEST_F(InstanceTest, Null_IsCountedAsNothing) {
    ref(nullptr);
    unref(nullptr);
    destroy(nullptr);
    EXPECT_EQ(instance_count(), before);
}

TEST_F(InstanceTest, SharedEndpoint_IsFreedOnceWithItsLastAssociation) {
    auto* fan = create<ACME_Fan>();
    std::vector<ACME_Cools*> associations;
    for (int i = 0; i < 3; ++i) {
        associations.push_back(create<ACME_Cools>());
        ref(fan);
        associations.back()->Cooler = fan;
    }
    unref(fan);
    EXPECT_EQ(instance_count(), before + 4);
    for (ACME_Cools* association : associations) destroy(association);
    EXPECT_EQ(instance_count(), before);
}

TEST_F(InstanceTest, Clone_CopiesEverythingDeeply) {
    auto* original = create<ACME_Cools>();
    original->name_space = "root/acme";
    original->Cooler = create<ACME_Fan>();
    original->Cooler->Id = "a";
    original->Cooler->Levels = {1, 2};
    auto* copy = static_cast<ACME_Cools*>(clone(original));
    original->Cooler->Id = "changed";
    original->Cooler->Levels.value.append(3);
    EXPECT_EQ(copy->count, 1u);
    EXPECT_TRUE(copy->name_space.equal("root/acme"));
    EXPECT_NE(copy->Cooler, original->Cooler);
    EXPECT_TRUE(copy->Cooler->Id.value.equal("a"));
    EXPECT_EQ(copy->Cooler->Id.null, 0);
    EXPECT_EQ(copy->Cooler->Slot.null, 1);
    EXPECT_EQ(copy->Cooler->Levels.value, Array<std::uint16_t>({1, 2}));
    EXPECT_EQ(copy->Cooled, nullptr);
    destroy(original);
    destroy(copy);
}

TEST_F(InstanceTest, Cast_GivesOnlyWhatTheInstanceIs) {
    Instance* fan = create<ACME_Fan>();
    Instance* device = create<ACME_Device>();
    EXPECT_EQ(cast<ACME_Device>(fan), fan);
    EXPECT_EQ(cast<ACME_Fan>(device), nullptr);
    EXPECT_EQ(cast<ACME_Fan>(nullptr), nullptr);
    destroy(fan);
    destroy(device);
}

TEST_F(InstanceTest, SetReference_DropsTheFormerTarget) {
    const Instance_Ptr association(create<ACME_Cools>());
    const Meta_Feature& cooled = *find_feature(*association->meta_class, "Cooled");
    set_reference_at(*association, cooled, create<ACME_Device>());
    auto* second = create<ACME_Device>();
    set_reference_at(*association, cooled, second);
    EXPECT_EQ(reference_at(*association, cooled), second);
    EXPECT_EQ(instance_count(), before + 2);
}

TEST_F(InstanceTest, FailedConstruction_LeavesNothing) {
    Meta_Class failing = ACME_Fan::static_meta_class;
    failing.construct = &fail_to_construct;
    EXPECT_THROW(create(&failing, false), std::bad_alloc);
}

TEST_F(InstanceTest, CountsOnSeveralThreads_AreNotLost) {
    auto* fan = create<ACME_Fan>();
    {
        std::vector<std::jthread> threads;
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([fan] {
                for (int i = 0; i < 1000; ++i) {
                    ref(fan);
                    const Instance_Ptr copy(clone(fan));
                    unref(fan);
                }
            });
        }
    }
    EXPECT_EQ(fan->count, 1u);
    unref(fan);
}
