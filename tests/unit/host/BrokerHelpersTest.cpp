#include "HostFixture.h"

namespace host {
namespace {

using testing::IsEmpty;

class BrokerHelpersTest : public HostTest {};

TEST_F(BrokerHelpersTest, Broker_SaysWhatItIs) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBrokerFT& upCalls = *provider.broker->bft;
        EXPECT_STREQ(upCalls.brokerName, "bmci2c embedded host");
        EXPECT_EQ(upCalls.brokerVersion, CMPIVersion200);
        EXPECT_EQ(upCalls.brokerCapabilities, 0x4000fU);
        EXPECT_EQ(provider.broker->xft, nullptr);
        EXPECT_EQ(provider.broker->mft, nullptr);
        EXPECT_EQ(upCalls.enumerateInstancesFiltered, nullptr);
    });
}

TEST_F(BrokerHelpersTest, ClassPathIsA_KnowsAncestors) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        CMPIStatus status{};
        const CMPIObjectPath* const widget = provider.NewPath("T_Widget");
        EXPECT_TRUE(broker->eft->classPathIsA(broker, widget, "t_element", &status));
        EXPECT_FALSE(broker->eft->classPathIsA(broker, widget, "T_Link", &status));
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        EXPECT_FALSE(
            broker->eft->classPathIsA(broker, provider.NewPath("T_Nothing"), "T_Link", &status));
        EXPECT_EQ(status.rc, CMPI_RC_ERR_INVALID_CLASS);
        EXPECT_FALSE(broker->eft->classPathIsA(broker, widget, nullptr, &status));
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The class name is NULL."));
    });
}

TEST_F(BrokerHelpersTest, TypeOfEachObject_IsKnown) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        const CMPIBrokerEncFT& make = *broker->eft;
        CMPIStatus status{};
        const std::pair<const void*, const char*> objects[] = {
            {provider.NewString("x"), "CMPIString"},
            {make.newArray(broker, 1, CMPI_uint8, &status), "CMPIArray"},
            {provider.NewPath("T_Thing"), "CMPIObjectPath"},
            {provider.NewInstance("T_Thing"), "CMPIInstance"},
            {make.newArgs(broker, &status), "CMPIArgs"},
            {make.newDateTime(broker, &status), "CMPIDateTime"},
            {provider.context, "CMPIContext"},
            {provider.result, "CMPIResult"},
            {broker->bft->enumerateInstanceNames(broker, provider.context,
                                                 provider.NewPath("T_Thing"), &status),
             "CMPIEnumeration"},
        };
        for (const auto& [object, name] : objects) {
            EXPECT_TRUE(make.isOfType(broker, object, name, &status)) << name;
            EXPECT_FALSE(make.isOfType(broker, object, "CMPIError", &status)) << name;
            EXPECT_EQ(TextOf(make.getType(broker, object, &status)), name);
            EXPECT_EQ(status.rc, CMPI_RC_OK);
        }
    });
}

TEST_F(BrokerHelpersTest, TypeOfNothing_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        const CMPIBrokerEncFT& make = *broker->eft;
        CMPIStatus status{};
        EXPECT_FALSE(make.isOfType(broker, nullptr, "CMPIString", &status));
        EXPECT_THAT(status,
                    IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPI object."));
        EXPECT_EQ(make.getType(broker, nullptr, &status), nullptr);
        EXPECT_EQ(status.rc, CMPI_RC_ERR_INVALID_HANDLE);
        EXPECT_FALSE(make.isOfType(broker, provider.NewString("x"), nullptr, &status));
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The type is NULL."));
        const CMPIString foreign{&status, nullptr};
        EXPECT_FALSE(make.isOfType(broker, &foreign, "CMPIString", &status));
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        const auto unknown =
            IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not an object of this host.");
        EXPECT_EQ(make.getType(broker, &foreign, &status), nullptr);
        EXPECT_THAT(status, unknown);
        EXPECT_EQ(make.toString(broker, &foreign, &status), nullptr);
        EXPECT_THAT(status, unknown);
    });
}

TEST_F(BrokerHelpersTest, ToString_ShowsTheObject) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        const CMPIBrokerEncFT& make = *broker->eft;
        CMPIStatus status{};
        const auto text = [&](const void* object) {
            return TextOf(make.toString(broker, object, &status));
        };
        CMPIInstance* const thing = provider.NewInstance("T_Thing");
        thing->ft->setProperty(thing, "Name", Chars("x"), CMPI_chars);
        EXPECT_EQ(text(provider.NewString("abc")), "abc");
        EXPECT_EQ(text(provider.NewPath("T_Thing")), "root/test:T_Thing");
        EXPECT_EQ(text(thing), "root/test:T_Thing.Name=\"x\"");
        EXPECT_EQ(text(make.newDateTimeFromBinary(broker, 0, 1, &status)),
                  "00000000000000.000000:000");
        EXPECT_EQ(text(make.newArgs(broker, &status)), "CMPIArgs");
        EXPECT_EQ(make.toString(broker, nullptr, &status), nullptr);
        EXPECT_EQ(status.rc, CMPI_RC_ERR_INVALID_HANDLE);
    });
}

TEST_F(BrokerHelpersTest, Message_HasItsArguments) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        CMPIStatus status{};
        const CMPIString* const message = broker->eft->getMessage(
            broker, "id", "$0 $1 $2 $3 $4 $5 $6 $7 $9 $", &status, 8, CMPI_chars, "a", CMPI_string,
            provider.NewString("b"), CMPI_sint32, -1, CMPI_uint32, 4294967295U, CMPI_sint64,
            CMPISint64{-2}, CMPI_uint64, CMPIUint64{3}, CMPI_boolean, 1, CMPI_real64, 0.5);
        EXPECT_EQ(TextOf(message), "a b -1 4294967295 -2 3 true 0.500000 $9 $");
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        EXPECT_EQ(TextOf(broker->eft->getMessage2(broker, "id", nullptr, "-$0-", &status, 1,
                                                  CMPI_uint8, 7U)),
                  "-7-");
    });
}

TEST_F(BrokerHelpersTest, MessageWithoutText_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        CMPIStatus status{};
        EXPECT_EQ(broker->eft->getMessage(broker, "id", nullptr, &status, 0), nullptr);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The default text is NULL."));
        EXPECT_EQ(broker->eft->getMessage(broker, "id", "$0", &status, 1, CMPI_ref, nullptr),
                  nullptr);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_INVALID_DATA_TYPE,
                                    "A message's argument cannot be of type 4352."));
    });
}

TEST_F(BrokerHelpersTest, MessageFile_IsNotThereAndThatIsFine) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        int anything = 0;
        CMPIMsgFileHandle handle = &anything;
        EXPECT_EQ(broker->eft->openMessageFile(broker, "x.cat", &handle).rc, CMPI_RC_OK);
        EXPECT_EQ(handle, nullptr);
        EXPECT_EQ(broker->eft->closeMessageFile(broker, handle).rc, CMPI_RC_OK);
    });
}

TEST_F(BrokerHelpersTest, LogAndTrace_ReachTheSink) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        EXPECT_EQ(broker->eft->logMessage(broker, CMPI_SEV_ERROR, "id", "text", nullptr).rc,
                  CMPI_RC_OK);
        EXPECT_EQ(
            broker->eft
                ->trace(broker, CMPI_LEV_VERBOSE, "part", nullptr, provider.NewString("object"))
                .rc,
            CMPI_RC_OK);
        EXPECT_EQ(broker->eft->trace(broker, CMPI_LEV_INFO, nullptr, "x", nullptr).rc, CMPI_RC_OK);
        EXPECT_EQ(broker->eft->logMessage(broker, CMPI_SEV_INFO, "id", nullptr, nullptr).rc,
                  CMPI_RC_ERR_INVALID_HANDLE);
    });
    const auto messages = Messages();
    ASSERT_EQ(messages.size(), 3U);
    EXPECT_EQ(messages[0].kind, Message::Kind::Log);
    EXPECT_EQ(messages[0].level, CMPI_SEV_ERROR);
    EXPECT_EQ(messages[0].component, "id");
    EXPECT_EQ(messages[0].text, "text");
    EXPECT_EQ(messages[1].kind, Message::Kind::Trace);
    EXPECT_EQ(messages[1].level, CMPI_LEV_VERBOSE);
    EXPECT_EQ(messages[1].component, "part");
    EXPECT_EQ(messages[1].text, "object");
    EXPECT_EQ(messages[2].component, "");
}

TEST_F(BrokerHelpersTest, WhatThisHostLacks_IsNotSupported) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        CMPIStatus status{};
        EXPECT_FALSE(broker->eft->newSelectExp(broker, "q", "l", nullptr, &status));
        EXPECT_THAT(status,
                    IsError(CMPI_RC_ERR_NOT_SUPPORTED, "This host has no CMPISelectExp objects."));
        EXPECT_FALSE(broker->eft->newCMPIError(broker, "o", "i", "m", CMPIErrorSeverity{},
                                               CMPIErrorProbableCause{}, CMPI_RC_ERR_FAILED,
                                               &status));
        EXPECT_THAT(status,
                    IsError(CMPI_RC_ERR_NOT_SUPPORTED, "This host has no CMPIError objects."));
        EXPECT_FALSE(broker->bft->execQuery(broker, provider.context, nullptr, "q", "l", &status));
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_NOT_SUPPORTED, "This host executes no queries."));
        EXPECT_THAT(broker->bft->deliverIndication(broker, provider.context, "root/test", nullptr),
                    IsError(CMPI_RC_ERR_NOT_SUPPORTED, "This host delivers no indications."));
    });
}

TEST_F(BrokerHelpersTest, InvalidBroker_IsRefusedByEveryFactory) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBrokerEncFT& make = *provider.broker->eft;
        const auto invalid = IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIBroker.");
        const CMPIObjectPath* const path = provider.NewPath("T_Thing");
        const CMPIBroker empty{};
        for (const CMPIBroker* const broker : {static_cast<const CMPIBroker*>(nullptr), &empty}) {
            const std::function<void(CMPIStatus*)> calls[] = {
                [&](CMPIStatus* rc) { make.newInstance(broker, path, rc); },
                [&](CMPIStatus* rc) { make.newObjectPath(broker, "n", "c", rc); },
                [&](CMPIStatus* rc) { make.newArgs(broker, rc); },
                [&](CMPIStatus* rc) { make.newString(broker, "x", rc); },
                [&](CMPIStatus* rc) { make.newArray(broker, 1, CMPI_uint8, rc); },
                [&](CMPIStatus* rc) { make.newDateTime(broker, rc); },
                [&](CMPIStatus* rc) { make.newDateTimeFromBinary(broker, 0, 0, rc); },
                [&](CMPIStatus* rc) { make.newDateTimeFromChars(broker, "x", rc); },
                [&](CMPIStatus* rc) { make.newSelectExp(broker, "q", "l", nullptr, rc); },
                [&](CMPIStatus* rc) { make.classPathIsA(broker, path, "c", rc); },
                [&](CMPIStatus* rc) { make.toString(broker, path, rc); },
                [&](CMPIStatus* rc) { make.isOfType(broker, path, "x", rc); },
                [&](CMPIStatus* rc) { make.getType(broker, path, rc); },
                [&](CMPIStatus* rc) { make.getMessage(broker, "i", "x", rc, 0); },
                [&](CMPIStatus* rc) { make.getMessage2(broker, "i", nullptr, "x", rc, 0); },
                [&](CMPIStatus* rc) {
                    *rc = make.logMessage(broker, CMPI_SEV_INFO, "i", "x", nullptr);
                },
                [&](CMPIStatus* rc) { *rc = make.trace(broker, CMPI_LEV_INFO, "i", "x", nullptr); },
                [&](CMPIStatus* rc) { *rc = make.openMessageFile(broker, "f", nullptr); },
                [&](CMPIStatus* rc) { *rc = make.closeMessageFile(broker, nullptr); },
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
