#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

#include "HostFixture.h"

namespace host {
namespace {

class BrokerTest : public HostTest {};

TEST_F(BrokerTest, Broker_SaysWhatItIs) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBrokerFT& upCalls = *provider.broker->bft;
        EXPECT_STREQ(upCalls.brokerName, "bmci2c embedded host");
        EXPECT_EQ(upCalls.brokerVersion, CMPIVersion200);
        EXPECT_EQ(upCalls.brokerCapabilities, 0x40001U);
        EXPECT_EQ(provider.broker->xft, nullptr);
        EXPECT_EQ(provider.broker->mft, nullptr);
    });
}

TEST_F(BrokerTest, FunctionThatTheHostDoesNotOffer_IsRefusedInItsStatus) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        const CMPIBrokerFT& ask = *broker->bft;
        const CMPIBrokerEncFT& make = *broker->eft;
        const CMPIContext* const context = provider.context;
        const CMPIObjectPath* const path = provider.NewPath("T_Thing");
        const auto refused =
            IsError(CMPI_RC_ERR_NOT_SUPPORTED, "This host does not offer this function.");
        CMPIStatus status{};
        EXPECT_EQ(ask.getInstance(broker, context, path, nullptr, &status), nullptr);
        EXPECT_THAT(status, refused);
        status = {};
        EXPECT_EQ(ask.getProperty(broker, context, path, "Name", &status).state, CMPI_badValue);
        EXPECT_THAT(status, refused);
        status = {};
        EXPECT_FALSE(make.classPathIsA(broker, path, "T_Element", &status));
        EXPECT_THAT(status, refused);
        status = {};
        EXPECT_EQ(make.getMessage(broker, "id", "$0", &status, 1, CMPI_chars, "a"), nullptr);
        EXPECT_THAT(status, refused);
        status = {};
        EXPECT_EQ(make.getMessage2(broker, "id", nullptr, "$0", &status, 1, CMPI_chars, "a"),
                  nullptr);
        EXPECT_THAT(status, refused);
        EXPECT_EQ(make.newDateTime(broker, nullptr), nullptr);
        EXPECT_THAT(ask.deleteInstance(broker, context, path), refused);
        EXPECT_THAT(make.logMessage(broker, CMPI_SEV_ERROR, "id", "text", nullptr), refused);
        EXPECT_EQ(ask.prepareAttachThread(broker, context), nullptr);
    });
}

TEST_F(BrokerTest, NoFunction_IsNull) {
    InProvider([](const ProviderSide& provider) {
        const auto hasNull = [](const auto& table, std::ptrdiff_t firstFunction) {
            std::array<void*, sizeof table / sizeof(void*)> entries;
            std::memcpy(entries.data(), &table, sizeof table);
            return std::count(entries.begin() + firstFunction, entries.end(), nullptr) != 0;
        };
        EXPECT_FALSE(hasNull(*provider.broker->bft, 2));
        EXPECT_FALSE(hasNull(*provider.broker->eft, 1));
    });
}

TEST_F(BrokerTest, InvalidBroker_IsRefusedByEveryFactory) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBrokerEncFT& make = *provider.broker->eft;
        const auto invalid = IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIBroker.");
        const CMPIObjectPath* const path = provider.NewPath("T_Thing");
        const CMPIBroker empty{};
        for (const CMPIBroker* const broker : {static_cast<const CMPIBroker*>(nullptr), &empty}) {
            const std::function<void(CMPIStatus*)> calls[] = {
                [&](CMPIStatus* rc) { make.newInstance(broker, path, rc); },
                [&](CMPIStatus* rc) { make.newObjectPath(broker, "n", "c", rc); },
                [&](CMPIStatus* rc) { make.newString(broker, "x", rc); },
                [&](CMPIStatus* rc) { make.newArray(broker, 1, CMPI_uint8, rc); },
                [&](CMPIStatus* rc) { make.newDateTimeFromChars(broker, "x", rc); },
            };
            for (const auto& call : calls) {
                CMPIStatus status{};
                call(&status);
                EXPECT_THAT(status, invalid);
            }
        }
    });
}

}  // namespace
}  // namespace host
