#include "HostFixture.h"

namespace host {
namespace {

class UpCallTest : public HostTest {};

TEST_F(UpCallTest, ProviderReEnteredOnItsOwnThread_Answers) {
    const MethodResult result = host.InvokeMethod(PathTo("T_Thing", "one"), "Count", {});
    EXPECT_THAT(result.status, IsFailure(CMPI_RC_OK, ""));
    EXPECT_EQ(std::get<std::uint64_t>(result.returnValue.data), 3U);
}

TEST_F(UpCallTest, EnumerateInstances_HonoursTheList) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        CMPIStatus status{};
        const char* properties[] = {"Caption", nullptr};
        CMPIEnumeration* const found = broker->bft->enumerateInstances(
            broker, provider.context, provider.NewPath("T_Widget"), properties, &status);
        EXPECT_THAT(status, IsError(CMPI_RC_OK, ""));
        ASSERT_TRUE(found);
        const CMPIInstance* const widget = found->ft->getNext(found, &status).value.inst;
        EXPECT_EQ(TextOf(widget->ft->getProperty(widget, "Caption", &status).value.string),
                  "third");
        EXPECT_EQ(widget->ft->getProperty(widget, "Flag", &status).state, CMPI_nullValue);
    });
}

TEST_F(UpCallTest, ErrorOfTheOtherProvider_ComesWithItsText) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        CMPIStatus status{};
        EXPECT_EQ(broker->bft->enumerateInstances(broker, provider.context,
                                                  provider.NewPath("T_Broken"), nullptr, &status),
                  nullptr);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_FAILED, "The store is locked."));
    });
}

TEST_F(UpCallTest, ContextEntries_ReachTheOtherProvider) {
    InProvider([](const ProviderSide& provider) {
        CMPIContext* const context = provider.context->ft->clone(provider.context, nullptr);
        context->ft->addEntry(context, CMPIPrincipal, Chars("me"), CMPI_chars);
        const TestModule module;
        std::string seen;
        module.SetProbe(
            [](void* data, const CMPIBroker*, const CMPIContext* inner, const CMPIResult*) {
                *static_cast<std::string*>(data) =
                    TextOf(inner->ft->getEntry(inner, CMPIPrincipal, nullptr).value.string);
            },
            &seen);
        provider.broker->bft->enumerateInstances(provider.broker, context,
                                                 provider.NewPath("T_Failing"), nullptr, nullptr);
        EXPECT_EQ(seen, "me");
        context->ft->release(context);
    });
}

TEST_F(UpCallTest, InvalidHandles_AreRefused) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        const CMPIObjectPath* const path = provider.NewPath("T_Thing");
        const auto statusOf = [&](const CMPIBroker* mb, const CMPIContext* context,
                                  const CMPIObjectPath* classPath) {
            CMPIStatus status{};
            broker->bft->enumerateInstances(mb, context, classPath, nullptr, &status);
            return status;
        };
        const auto invalid = [](const char* type) {
            return IsError(CMPI_RC_ERR_INVALID_HANDLE,
                           std::string("This is not a valid ") + type + ".");
        };
        EXPECT_THAT(statusOf(nullptr, provider.context, path), invalid("CMPIBroker"));
        EXPECT_THAT(statusOf(broker, nullptr, path), invalid("CMPIContext"));
        EXPECT_THAT(statusOf(broker, provider.context, nullptr), invalid("CMPIObjectPath"));
    });
}

}  // namespace
}  // namespace host
