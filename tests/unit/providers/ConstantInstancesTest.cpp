// The classes with one fixed instance, and the service record: one instance at every enumeration.
#include <gmock/gmock.h>
#include <module/all_providers.h>

#include "Enumeration.h"
#include "RegisteredTests.h"

namespace {

// A provider and the class that it is for.
template <class P, class C>
struct Case {
    using Provider = P;
    using Class = C;
};

#define CASE(X) Case<QUVSG_BMCI2C_##X##_Provider, QUVSG_BMCI2C_##X>

template <class Case>
class ConstantInstance : public testing::Test {
protected:
    typename Case::Provider provider;
};

using Cases = testing::Types<CASE(ManagedSystemElement), CASE(SoftwareIdentity), CASE(HelpService),
                             CASE(DiagnosticServiceCapabilities), CASE(DiagnosticSetting),
                             CASE(DiagnosticsLog)>;
TYPED_TEST_SUITE(ConstantInstance, Cases);

}  // namespace

TYPED_TEST(ConstantInstance, WhateverModelIsGiven_IsTheOnlyOne) {
    using Class = typename TypeParam::Class;
    const cimple::Instance_Ptr model(cimple::create<Class>());
    auto* asked = static_cast<Class*>(model.get());
    asked->Caption = "another";
    const Enumeration withModel = Enumerate<Class>(this->provider, asked);
    const Enumeration without = Enumerate<Class>(this->provider);
    EXPECT_EQ(withModel.status, 0);
    EXPECT_EQ(withModel.instances.size(), 1U);
    EXPECT_EQ(withModel.TheOne(), without.TheOne());
}

TYPED_TEST(ConstantInstance, EveryEnumeration_GivesAnEqualIndependentOne) {
    using Class = typename TypeParam::Class;
    const Enumeration first = Enumerate<Class>(this->provider);
    const Enumeration second = Enumerate<Class>(this->provider);
    ASSERT_EQ(first.instances.size(), 1U);
    EXPECT_EQ(first.TheOne(), second.TheOne());
    EXPECT_NE(first.instances[0], second.instances[0]);
    auto* changed = static_cast<Class*>(first.instances[0].get());
    changed->Caption = "changed";
    EXPECT_NE(first.TheOne(), second.TheOne());
}

// The clock stands still between two enumerations at most for a moment.
TEST(DiagnosticServiceRecord, CreationTimeStamp_ChangesFromEnumerationToEnumeration) {
    QUVSG_BMCI2C_DiagnosticServiceRecord_Provider provider;
    const auto timeStamp = [&] {
        const Enumeration result = Enumerate<QUVSG_BMCI2C_DiagnosticServiceRecord>(provider);
        return static_cast<QUVSG_BMCI2C_DiagnosticServiceRecord*>(result.instances.at(0).get())
            ->CreationTimeStamp.value.to_string();
    };
    const std::string first = timeStamp();
    std::string later = first;
    for (int attempt = 0; attempt < 100'000 && later == first; ++attempt) later = timeStamp();
    EXPECT_GT(later, first);
}

TEST(DiagnosticServiceRecord, OfSeveralTests_HasTheDataOfTheLastThatKeepsAny) {
    OtherTest first("first");
    OtherTest second("second");
    OtherTest idle("idle");
    const RegisteredTests tests({&first, &second, &idle});
    QUVSG_BMCI2C_DiagnosticServiceRecord_Provider provider;
    const auto lines = [&] {
        return Enumerate<QUVSG_BMCI2C_DiagnosticServiceRecord>(provider).TheOne();
    };
    EXPECT_THAT(lines(), testing::Contains("RecordData = \"No Record Data\""));
    first.Keep("of the first");
    EXPECT_THAT(lines(), testing::Contains("RecordData = \"of the first\""));
    second.Keep("one of the second");
    second.Keep("another of the second");
    EXPECT_THAT(lines(), testing::Contains("RecordData = \"another of the second\""));
}
