#include "HostFixture.h"

namespace host {
namespace {

using testing::ElementsAre;

class UpCallTest : public HostTest {
protected:
    static CMPIObjectPath* Thing(const ProviderSide& provider, const char* name) {
        CMPIObjectPath* const path = provider.NewPath("T_Thing");
        path->ft->addKey(path, "Name", Chars(name), CMPI_chars);
        return path;
    }

    // The paths of what an up-call found.
    static std::vector<std::string> Paths(const CMPIEnumeration* found) {
        std::vector<std::string> paths;
        while (found && found->ft->hasNext(found, nullptr)) {
            const CMPIData data = found->ft->getNext(found, nullptr);
            const CMPIObjectPath* const path =
                data.type == CMPI_instance
                    ? data.value.inst->ft->getObjectPath(data.value.inst, nullptr)
                    : data.value.ref;
            paths.push_back(TextOf(path->ft->toString(path, nullptr)));
        }
        return paths;
    }

    static constexpr const char* kThree = "root/test:T_Widget.Name=\"three\"";
};

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

TEST_F(UpCallTest, NamesAndNestedMethods_Answer) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        CMPIStatus status{};
        EXPECT_THAT(Paths(broker->bft->enumerateInstanceNames(
                        broker, provider.context, provider.NewPath("T_Widget"), &status)),
                    ElementsAre(kThree));
        CMPIArgs* const in = broker->eft->newArgs(broker, &status);
        CMPIArgs* const out = broker->eft->newArgs(broker, &status);
        const CMPIData count = broker->bft->invokeMethod(
            broker, provider.context, provider.NewPath("T_Thing"), "Count", in, out, &status);
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        EXPECT_EQ(count.type, CMPI_uint32);
        EXPECT_EQ(count.value.uint32, 3U);
        in->ft->addArg(in, "Text", Chars("x"), CMPI_chars);
        broker->bft->invokeMethod(broker, provider.context, provider.NewPath("T_Thing"), "Echo", in,
                                  out, &status);
        EXPECT_EQ(TextOf(out->ft->getArg(out, "Text", &status).value.string), "x");
        broker->bft->invokeMethod(broker, provider.context, provider.NewPath("T_Thing"), "Echo", in,
                                  nullptr, &status);
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        broker->bft->invokeMethod(broker, provider.context, provider.NewPath("T_Thing"), nullptr,
                                  in, out, &status);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The method's name is NULL."));
    });
}

TEST_F(UpCallTest, CreateGetModifyDelete_ChangeTheStore) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        const CMPIBrokerFT& ask = *broker->bft;
        CMPIStatus status{};
        const CMPIObjectPath* const path = Thing(provider, "made");
        CMPIInstance* const made = broker->eft->newInstance(broker, path, &status);
        made->ft->setProperty(made, "Caption", Chars("fresh"), CMPI_chars);
        const CMPIObjectPath* const created =
            ask.createInstance(broker, provider.context, path, made, &status);
        ASSERT_THAT(status, IsError(CMPI_RC_OK, ""));
        EXPECT_EQ(TextOf(created->ft->toString(created, &status)),
                  "root/test:T_Thing.Name=\"made\"");

        const CMPIInstance* const got =
            ask.getInstance(broker, provider.context, path, nullptr, &status);
        ASSERT_TRUE(got);
        EXPECT_EQ(TextOf(got->ft->getProperty(got, "Caption", &status).value.string), "fresh");

        made->ft->setProperty(made, "Caption", Chars("stale"), CMPI_chars);
        EXPECT_EQ(ask.modifyInstance(broker, provider.context, path, made, nullptr).rc, CMPI_RC_OK);
        EXPECT_EQ(
            TextOf(
                ask.getProperty(broker, provider.context, path, "caption", &status).value.string),
            "stale");
        EXPECT_EQ(
            ask.setProperty(broker, provider.context, path, "Caption", Chars("new"), CMPI_chars).rc,
            CMPI_RC_OK);
        EXPECT_EQ(
            TextOf(
                ask.getProperty(broker, provider.context, path, "caption", &status).value.string),
            "new");
        EXPECT_EQ(ask.deleteInstance(broker, provider.context, path).rc, CMPI_RC_OK);
        EXPECT_THAT(ask.deleteInstance(broker, provider.context, path),
                    IsError(CMPI_RC_ERR_NOT_FOUND, "No such thing."));
    });
}

TEST_F(UpCallTest, PropertyThatTheClassLacks_IsNoSuchProperty) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        const auto missing =
            IsError(CMPI_RC_ERR_NO_SUCH_PROPERTY, "The class 'T_Thing' has no property 'Colour'.");
        CMPIStatus status{};
        const CMPIObjectPath* const path = Thing(provider, "one");
        broker->bft->getProperty(broker, provider.context, path, "Colour", &status);
        EXPECT_THAT(status, missing);
        EXPECT_THAT(broker->bft->setProperty(broker, provider.context, path, "Colour", Chars("x"),
                                             CMPI_chars),
                    missing);
        broker->bft->getProperty(broker, provider.context, provider.NewPath("T_Nothing"), "x",
                                 &status);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_INVALID_CLASS, "There is no class 'T_Nothing'."));
    });
}

TEST_F(UpCallTest, Associations_Answer) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        const CMPIBrokerFT& ask = *broker->bft;
        CMPIStatus status{};
        const CMPIObjectPath* const one = Thing(provider, "one");
        const char* properties[] = {"Flag", nullptr};
        CMPIEnumeration* const found =
            ask.associators(broker, provider.context, one, "T_Refused", nullptr, nullptr, nullptr,
                            properties, &status);
        EXPECT_THAT(status, IsError(CMPI_RC_OK, ""));
        EXPECT_THAT(Paths(found), ElementsAre(kThree));
        EXPECT_THAT(Paths(ask.associatorNames(broker, provider.context, one, "T_Refused",
                                              "T_Widget", "From", "To", &status)),
                    ElementsAre(kThree));
        const auto link = ElementsAre(
            "root/test:T_Refused.From=\"root/test:T_Thing.Name=\\\"one\\\"\","
            "To=\"root/test:T_Widget.Name=\\\"three\\\"\"");
        EXPECT_THAT(Paths(ask.references(broker, provider.context, one, "T_Refused", "From",
                                         nullptr, &status)),
                    link);
        EXPECT_THAT(
            Paths(ask.referenceNames(broker, provider.context, one, "T_Refused", nullptr, &status)),
            link);
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
        CMPIArgs* const none = provider.broker->eft->newArgs(provider.broker, nullptr);
        provider.broker->bft->invokeMethod(provider.broker, context, provider.NewPath("T_Thing"),
                                           "Probe", none, none, nullptr);
        EXPECT_EQ(seen, "me");
        context->ft->release(context);
    });
}

TEST_F(UpCallTest, InvalidHandles_AreRefusedByEveryUpCall) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBroker* const broker = provider.broker;
        const CMPIBrokerFT& ask = *broker->bft;
        const CMPIInstance* const thing = provider.NewInstance("T_Thing");
        CMPIArgs* const args = broker->eft->newArgs(broker, nullptr);
        using Call = std::function<void(const CMPIBroker*, const CMPIContext*,
                                        const CMPIObjectPath*, CMPIStatus*)>;
        const Call calls[] = {
            [&](auto mb, auto ctx, auto op, auto rc) {
                ask.enumerateInstanceNames(mb, ctx, op, rc);
            },
            [&](auto mb, auto ctx, auto op, auto rc) {
                ask.enumerateInstances(mb, ctx, op, nullptr, rc);
            },
            [&](auto mb, auto ctx, auto op, auto rc) { ask.getInstance(mb, ctx, op, nullptr, rc); },
            [&](auto mb, auto ctx, auto op, auto rc) {
                ask.createInstance(mb, ctx, op, thing, rc);
            },
            [&](auto mb, auto ctx, auto op, auto rc) {
                *rc = ask.modifyInstance(mb, ctx, op, thing, nullptr);
            },
            [&](auto mb, auto ctx, auto op, auto rc) { *rc = ask.deleteInstance(mb, ctx, op); },
            [&](auto mb, auto ctx, auto op, auto rc) {
                ask.associators(mb, ctx, op, nullptr, nullptr, nullptr, nullptr, nullptr, rc);
            },
            [&](auto mb, auto ctx, auto op, auto rc) {
                ask.associatorNames(mb, ctx, op, nullptr, nullptr, nullptr, nullptr, rc);
            },
            [&](auto mb, auto ctx, auto op, auto rc) {
                ask.references(mb, ctx, op, nullptr, nullptr, nullptr, rc);
            },
            [&](auto mb, auto ctx, auto op, auto rc) {
                ask.referenceNames(mb, ctx, op, nullptr, nullptr, rc);
            },
            [&](auto mb, auto ctx, auto op, auto rc) {
                ask.invokeMethod(mb, ctx, op, "Echo", args, args, rc);
            },
            [&](auto mb, auto ctx, auto op, auto rc) {
                *rc = ask.setProperty(mb, ctx, op, "Flag", nullptr, CMPI_boolean);
            },
            [&](auto mb, auto ctx, auto op, auto rc) { ask.getProperty(mb, ctx, op, "Flag", rc); },
        };
        const auto invalid = [](const char* type) {
            return IsError(CMPI_RC_ERR_INVALID_HANDLE,
                           std::string("This is not a valid ") + type + ".");
        };
        for (const Call& call : calls) {
            CMPIStatus status{};
            call(nullptr, provider.context, provider.NewPath("T_Thing"), &status);
            EXPECT_THAT(status, invalid("CMPIBroker"));
            call(broker, nullptr, provider.NewPath("T_Thing"), &status);
            EXPECT_THAT(status, invalid("CMPIContext"));
            call(broker, provider.context, nullptr, &status);
            EXPECT_THAT(status, invalid("CMPIObjectPath"));
        }
        CMPIStatus status{};
        ask.createInstance(broker, provider.context, provider.NewPath("T_Thing"), nullptr, &status);
        EXPECT_THAT(status, invalid("CMPIInstance"));
        ask.invokeMethod(broker, provider.context, provider.NewPath("T_Thing"), "Echo", nullptr,
                         args, &status);
        EXPECT_THAT(status, invalid("CMPIArgs"));
    });
}

}  // namespace
}  // namespace host
