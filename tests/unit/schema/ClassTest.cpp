#include <framework/Instance.h>
#include <framework/visit.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <schema/QUVSG_BMCI2C_ConcreteJob.h>
#include <schema/QUVSG_BMCI2C_DiagnosticCompletionRecord.h>
#include <schema/QUVSG_BMCI2C_ElementSoftwareIdentity.h>
#include <schema/Repository.h>

#include <set>

#include "ClassFacts.h"
#include "MetaClassText.h"

namespace {

const std::vector<ClassFacts>& Facts() {
    static const std::vector<ClassFacts> facts = ReadClassFacts(CLASS_FACTS_FILE);
    return facts;
}

class GeneratedClass : public testing::TestWithParam<ClassFacts> {
protected:
    void SetUp() override {
        metaClass = cimple::find_class(schemaRepository, GetParam().name.c_str());
        ASSERT_NE(metaClass, nullptr);
    }

    const cimple::Meta_Class* metaClass = nullptr;
};

TEST_P(GeneratedClass, IsAsWrittenDown) {
    EXPECT_EQ(metaClass->name, GetParam().name);
    EXPECT_EQ(metaClass->super_class == nullptr ? "" : metaClass->super_class->name,
              GetParam().superClass);
    EXPECT_EQ(FlagsText(*metaClass), GetParam().flags);
    EXPECT_EQ(PropertyTexts(*metaClass), GetParam().properties);
    EXPECT_EQ(MethodTexts(*metaClass), GetParam().methods);
}

TEST_P(GeneratedClass, BelongsToTheRepository_WithItsMethods) {
    EXPECT_EQ(metaClass->repository, &schemaRepository);
    for (std::size_t i = 0; i < metaClass->method_count; ++i) {
        EXPECT_EQ(metaClass->methods[i]->repository, &schemaRepository);
        EXPECT_EQ(metaClass->methods[i]->flags, cimple::CLASS_METHOD);
    }
}

void ExpectAllNull(const cimple::Meta_Class& metaClass) {
    cimple::Instance* instance = cimple::create(&metaClass, false);
    EXPECT_EQ(instance->meta_class, &metaClass);
    std::set<std::size_t> offsets;
    for (std::size_t i = 0; i < metaClass.feature_count; ++i) {
        const cimple::Meta_Feature& feature = metaClass.features[i];
        EXPECT_TRUE(cimple::is_null_at(*instance, feature))
            << metaClass.name << "." << feature.name;
        EXPECT_TRUE(offsets.insert(feature.offset).second) << feature.name;
        EXPECT_LT(feature.offset, metaClass.size);
    }
    cimple::destroy(instance);
}

TEST_P(GeneratedClass, CreatesInstancesWithEveryPropertyNull) {
    ExpectAllNull(*metaClass);
    for (std::size_t i = 0; i < metaClass->method_count; ++i) {
        ExpectAllNull(*metaClass->methods[i]);
    }
}

INSTANTIATE_TEST_SUITE_P(Schema, GeneratedClass, testing::ValuesIn(Facts()),
                         [](const auto& test) { return test.param.name; });

TEST(GeneratedClasses, AreThoseThatAreWrittenDown_AndNoOthers) {
    std::set<std::string> expected, actual;
    for (const ClassFacts& facts : Facts()) {
        expected.insert(facts.name);
    }
    for (std::size_t i = 0; i < schemaRepository.class_count; ++i) {
        actual.insert(schemaRepository.classes[i]->name);
    }
    EXPECT_EQ(actual, expected);
    EXPECT_EQ(schemaRepository.class_count, 62U);
}

// The address of a member, as the tables give it.
const void* AddressOf(const cimple::Instance* instance, const char* name) {
    const auto* feature = cimple::find_feature(*instance->meta_class, name);
    return cimple::member_at(*instance, *feature);
}

TEST(GeneratedClasses, OffsetsLeadToTheMembers) {
    auto* record = cimple::create<QUVSG_BMCI2C_DiagnosticCompletionRecord>();
    EXPECT_EQ(AddressOf(record, "Caption"), &record->Caption);
    EXPECT_EQ(AddressOf(record, "InstanceID"), &record->InstanceID);
    EXPECT_EQ(AddressOf(record, "ErrorCount"), &record->ErrorCount);
    EXPECT_EQ(AddressOf(record, "LogArray"), &record->LogArray);
    cimple::destroy(record);
}

TEST(GeneratedClasses, OverriddenReference_IsTheMemberOfTheAncestor) {
    auto* association = cimple::create<QUVSG_BMCI2C_ElementSoftwareIdentity>();
    static_assert(std::is_same_v<decltype(association->Antecedent), CIM_ManagedElement*>);
    EXPECT_EQ(AddressOf(association, "Antecedent"), &association->Antecedent);
    cimple::destroy(association);
}

TEST(GeneratedClasses, AssignedProperty_IsNoLongerNull) {
    auto* job = cimple::create<QUVSG_BMCI2C_ConcreteJob>();
    job->PercentComplete = std::uint16_t{100};
    EXPECT_EQ(job->PercentComplete.null, 0);
    EXPECT_EQ(job->PercentComplete.value, 100);
    EXPECT_EQ(job->ErrorCode.null, 1);
    cimple::destroy(job);
}

}  // namespace
