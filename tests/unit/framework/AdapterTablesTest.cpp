// What cmpi_adapter makes and refuses.
#include "Adapter_Fixture.h"

namespace {

class AdapterTables : public Adapter_Fixture {
protected:
    // The adapter's return value; `made` is what it stored.
    int adapt(int mark, void* staticData, const cimple::Registration* registration,
              const CMPIBroker* server, int kind) {
        made = nullptr;
        return cimple::cmpi_adapter(mark, staticData, registration, server, &context,
                                    "ACME_Fan_Provider", kind, &made);
    }

    alignas(std::max_align_t) unsigned char block[cimple::kStaticDataSize] = {};
    void* made = nullptr;
};

}  // namespace

TEST_F(AdapterTables, EveryKind_IsAnInterfaceNamedAfterTheProvider) {
    EXPECT_STREQ(fans.instances->ft->miName, "ACME_Fan_Provider");
    EXPECT_STREQ(fans.methods->ft->miName, "ACME_Fan_Provider");
    EXPECT_STREQ(cools.associations->ft->miName, "ACME_Cools_Provider");
}

TEST_F(AdapterTables, SecondFactoryCall_GivesTheSameInterface) {
    EXPECT_EQ(adapt(67, block, &fanRegistration, &broker, 'I'), 0);
    void* const first = made;
    EXPECT_EQ(adapt(67, block, &fanRegistration, &broker, 'I'), 0);
    EXPECT_EQ(made, first);
    EXPECT_EQ(adapt(67, block, &fanRegistration, &broker, 'M'), 0);
    EXPECT_NE(made, first);
}

TEST_F(AdapterTables, WrongMark_GivesNoInterface) {
    EXPECT_NE(adapt(66, block, &fanRegistration, &broker, 'I'), 0);
    EXPECT_EQ(made, nullptr);
}

TEST_F(AdapterTables, WrongKind_GivesNoInterface) {
    for (const char kind : {'\0', 'i', 'P', 'X'}) {
        EXPECT_NE(adapt(67, block, &fanRegistration, &broker, kind), 0) << kind;
        EXPECT_EQ(made, nullptr);
    }
}

TEST_F(AdapterTables, MissingPart_GivesNoInterface) {
    EXPECT_NE(adapt(67, nullptr, &fanRegistration, &broker, 'I'), 0);
    EXPECT_NE(adapt(67, block, nullptr, &broker, 'I'), 0);
    EXPECT_NE(adapt(67, block, &fanRegistration, nullptr, 'I'), 0);
    EXPECT_EQ(made, nullptr);
}

TEST_F(AdapterTables, MakingInterfaces_CreatesNoProvider) {
    bool created = false;
    fanScript.construct = [&] { created = true; };
    EXPECT_EQ(adapt(67, block, &fanRegistration, &broker, 'I'), 0);
    EXPECT_FALSE(created);
}

TEST_F(AdapterTables, LaterBroker_ReplacesTheEarlierOne) {
    fake::Broker later;
    EXPECT_EQ(adapt(67, block, &fanRegistration, &broker, 'I'), 0);
    EXPECT_EQ(adapt(67, block, &fanRegistration, &later, 'I'), 0);
    broker.factories = {};
    auto* const interface = static_cast<CMPIInstanceMI*>(made);
    fanScript.enumInstances = [](const ACME_Fan*, auto* handler) {
        handler->handle(make_fan("a", 1));
        return 0;
    };
    const CMPIStatus status =
        interface->ft->enumerateInstanceNames(interface, &context, &result, class_path("ACME_Fan"));
    EXPECT_EQ(to_text(status), "0");
    EXPECT_THAT(result.answers, testing::ElementsAre("root/acme:ACME_Fan.Id=\"a\",Slot=1"));
    interface->ft->cleanup(interface, &context, 1);
}
