// The factories against an adapter that records what it is given.
#include <cmpi/cmpi.h>
#include <framework/adapter/cmpi_adapter.h>
#include <gtest/gtest.h>
#include <module/module.h>

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace {

struct AdapterCall {
    int mark;
    void* staticData;
    const cimple::Registration* registration;
    const CMPIBroker* broker;
    const CMPIContext* context;
    std::string providerName;
    int kind;
    void* resultBefore;
};

std::vector<AdapterCall> calls;
void* nextResult = nullptr;

using Factory = void* (*)(const CMPIBroker*, const CMPIContext*);

struct Provider {
    const char* className;
    Factory instance;
    Factory method;
    Factory association;  // null for a class that is no association
};

}  // namespace

int cimple::cmpi_adapter(int mark, void* staticData, const Registration* registration,
                         const CMPIBroker* broker, const CMPIContext* context,
                         const char* providerName, int kind, void** result) {
    calls.push_back({mark, staticData, registration, broker, context, providerName, kind, *result});
    *result = nextResult;
    return 0;
}

#define DECLARE(X)                                                                      \
    extern "C" void* QUVSG_BMCI2C_##X##_Provider_Create_InstanceMI(const CMPIBroker*,   \
                                                                   const CMPIContext*); \
    extern "C" void* QUVSG_BMCI2C_##X##_Provider_Create_MethodMI(const CMPIBroker*,     \
                                                                 const CMPIContext*);
#define DECLARE_ASSOCIATION(X)                                                           \
    DECLARE(X)                                                                           \
    extern "C" void* QUVSG_BMCI2C_##X##_Provider_Create_AssociationMI(const CMPIBroker*, \
                                                                      const CMPIContext*);
BMCI2C_PROVIDERS(DECLARE, DECLARE_ASSOCIATION)

namespace {

#define PLAIN(X)                                                        \
    {"QUVSG_BMCI2C_" #X, QUVSG_BMCI2C_##X##_Provider_Create_InstanceMI, \
     QUVSG_BMCI2C_##X##_Provider_Create_MethodMI, nullptr},
#define ASSOCIATION(X)                                                  \
    {"QUVSG_BMCI2C_" #X, QUVSG_BMCI2C_##X##_Provider_Create_InstanceMI, \
     QUVSG_BMCI2C_##X##_Provider_Create_MethodMI,                       \
     QUVSG_BMCI2C_##X##_Provider_Create_AssociationMI},
const Provider kProviders[] = {BMCI2C_PROVIDERS(PLAIN, ASSOCIATION)};

bool IsInTheChain(const cimple::Registration* wanted) {
    const cimple::Registration* registration = cimple_module();
    while (registration != nullptr && registration != wanted) registration = registration->next;
    return registration != nullptr;
}

class FactoriesTest : public testing::TestWithParam<Provider> {
protected:
    void SetUp() override {
        calls.clear();
        nextResult = nullptr;
    }

    CMPIBroker broker{};
    CMPIContext context{};
};

}  // namespace

TEST_P(FactoriesTest, EachFactory_MakesOneCallWithItsOwnRegistrationAndKind) {
    const Provider& provider = GetParam();
    provider.instance(&broker, &context);
    provider.method(&broker, &context);
    if (provider.association != nullptr) provider.association(&broker, &context);

    const std::string name = std::string(provider.className) + "_Provider";
    const int kinds[] = {73, 77, 65};
    ASSERT_EQ(calls.size(), provider.association != nullptr ? 3U : 2U);
    for (std::size_t i = 0; i < calls.size(); ++i) {
        EXPECT_EQ(calls[i].mark, 67);
        EXPECT_EQ(calls[i].kind, kinds[i]);
        EXPECT_EQ(calls[i].providerName, name);
        EXPECT_EQ(calls[i].registration->provider_name, name);
        EXPECT_STREQ(calls[i].registration->meta_class->name, provider.className);
        EXPECT_TRUE(IsInTheChain(calls[i].registration));
        EXPECT_EQ(calls[i].broker, &broker);
        EXPECT_EQ(calls[i].context, &context);
        EXPECT_EQ(calls[i].resultBefore, nullptr);
    }
}

TEST_P(FactoriesTest, FactoriesOfOneProvider_ShareItsZeroedBlock) {
    const Provider& provider = GetParam();
    provider.instance(&broker, &context);
    provider.method(&broker, &context);
    if (provider.association != nullptr) provider.association(&broker, &context);
    for (const AdapterCall& call : calls) EXPECT_EQ(call.staticData, calls[0].staticData);
    static_assert(cimple::kStaticDataSize == 2048);
    const std::vector<char> zeros(cimple::kStaticDataSize);
    EXPECT_EQ(std::vector<char>(static_cast<char*>(calls[0].staticData),
                                static_cast<char*>(calls[0].staticData) + zeros.size()),
              zeros);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(calls[0].staticData) % alignof(std::max_align_t),
              0U);
}

TEST_P(FactoriesTest, Result_IsWhatTheAdapterMade) {
    int table = 0;
    nextResult = &table;
    EXPECT_EQ(GetParam().instance(&broker, &context), &table);
    nextResult = nullptr;
    EXPECT_EQ(GetParam().instance(&broker, &context), nullptr);
}

INSTANTIATE_TEST_SUITE_P(AllProviders, FactoriesTest, testing::ValuesIn(kProviders),
                         [](const auto& provider) {
                             return std::string(provider.param.className);
                         });

TEST(Factories, BlocksOfDifferentProviders_Differ) {
    calls.clear();
    CMPIBroker broker{};
    std::set<void*> blocks;
    for (const Provider& provider : kProviders) provider.instance(&broker, nullptr);
    for (const AdapterCall& call : calls) blocks.insert(call.staticData);
    EXPECT_EQ(blocks.size(), 23U);
}
