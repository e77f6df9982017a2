// What a provider learns from the CIM server during a request.
#include <framework/cimom.h>

#include <thread>

#include "Adapter_Fixture.h"

using cimple::Instance;
using cimple::Instance_Enumerator;
using cimple::Instance_Ptr;
using testing::ElementsAre;

namespace {

class Upcall : public Adapter_Fixture {
protected:
    // Runs the body within a request to the association's provider.
    CMPIStatus within_request(const std::function<void()>& body) {
        coolsScript.enumInstances = [&](const ACME_Cools*, auto*) {
            body();
            return 0;
        };
        return cools.instances->ft->enumerateInstances(cools.instances, &context, &result,
                                                       class_path("ACME_Cools"), nullptr);
    }
    // The status of the up-call for all fans; within a request only.
    int ask(Instance_Enumerator& fansFound, const char* nameSpace = "root/acme") {
        const Instance_Ptr model(cimple::create<ACME_Fan>());
        return cimple::cimom::enum_instances(nameSpace, model.get(), fansFound);
    }
    void answer_with(std::vector<CMPIData> elements) {
        broker.onEnumerate = [this, elements](const fake::Path& path, CMPIStatus*) {
            asked = to_text(&path);
            return broker.arena.enumeration(elements);
        };
    }
    CMPIData fan_data() {
        return broker.arena.instance_data(
            broker.arena.instance(fan_path())
                ->with("Speed", fake::integer_data(CMPI_uint16, 900))
                ->with("Levels", fake::null_data(CMPI_ARRAY | CMPI_uint16)));
    }

    std::string asked;
};

// One instance, and after it the given status.
class Interrupted_Enumeration : public CMPIEnumeration {
    CMPIEnumerationFT table{};

public:
    Interrupted_Enumeration(const CMPIData& onlyInstance, CMPIrc statusAfterIt)
        : CMPIEnumeration{nullptr, &table}, instance(onlyInstance), code(statusAfterIt) {
        table.hasNext = [](const CMPIEnumeration* list, CMPIStatus* status) -> CMPIBoolean {
            const auto& self = *static_cast<const Interrupted_Enumeration*>(list);
            if (self.isRead) status->rc = self.code;
            return 1;
        };
        table.getNext = [](const CMPIEnumeration* list, CMPIStatus*) {
            const auto& self = *static_cast<const Interrupted_Enumeration*>(list);
            self.isRead = true;
            return self.instance;
        };
    }

    const CMPIData instance;
    const CMPIrc code;
    mutable bool isRead = false;
};

}  // namespace

TEST_F(Upcall, Answer_IsConvertedWithKeysPropertiesAndNameSpace) {
    answer_with({fan_data(), fan_data()});
    int seen = 0;
    EXPECT_EQ(to_text(within_request([&] {
                  Instance_Enumerator fansFound;
                  EXPECT_EQ(ask(fansFound), 0);
                  for (; fansFound; fansFound++) {
                      const Instance_Ptr found(fansFound());
                      const auto* const fan = cimple::cast<ACME_Fan>(found.get());
                      ASSERT_NE(fan, nullptr);
                      EXPECT_TRUE(fan->Id.value.equal("a"));
                      EXPECT_EQ(fan->Slot.value, 3);
                      EXPECT_EQ(fan->Speed.value, 900);
                      EXPECT_EQ(fan->Levels.null, 1);
                      EXPECT_EQ(fan->Caption.null, 1);
                      EXPECT_TRUE(fan->name_space.equal("root/acme"));
                      ++seen;
                  }
              })),
              "0");
    EXPECT_EQ(seen, 2);
    EXPECT_EQ(asked, "root/acme:ACME_Fan");
    EXPECT_EQ(broker.upcallContext, &context);
}

TEST_F(Upcall, GivenNameSpace_IsAskedFor) {
    answer_with({});
    within_request([&] {
        Instance_Enumerator fansFound;
        EXPECT_EQ(ask(fansFound, "root/other"), 0);
        EXPECT_FALSE(fansFound);
    });
    EXPECT_EQ(asked, "root/other:ACME_Fan");
}

TEST_F(Upcall, InstanceOfAClassUnknownHere_IsBareAndKeepsItsNameSpace) {
    auto* const pump = class_path("ACME_Pump")->with_key("Id", broker.arena.string_data("p"));
    answer_with({broker.arena.instance_data(broker.arena.instance(pump))});
    within_request([&] {
        Instance_Enumerator found;
        EXPECT_EQ(ask(found), 0);
        ASSERT_TRUE(found);
        const Instance_Ptr instance(found());
        ASSERT_NE(instance, nullptr);
        EXPECT_EQ(cimple::cast<ACME_Device>(instance.get()), nullptr);
        EXPECT_TRUE(instance->name_space.equal("root/acme"));
        const Instance_Ptr copy(cimple::clone(instance.get()));
        EXPECT_EQ(copy->meta_class, instance->meta_class);
    });
}

TEST_F(Upcall, ReferencesInTheAnswer_AreFollowedToTheirKeys) {
    auto* const association = broker.arena.instance(class_path("ACME_Cools"));
    association->with("Cooler", broker.arena.ref_data(fan_path()));
    answer_with({broker.arena.instance_data(association)});
    within_request([&] {
        Instance_Enumerator found;
        const Instance_Ptr model(cimple::create<ACME_Cools>());
        EXPECT_EQ(cimple::cimom::enum_instances("root/acme", model.get(), found), 0);
        const Instance_Ptr instance(found());
        const auto* const cooling = cimple::cast<ACME_Cools>(instance.get());
        ASSERT_NE(cooling, nullptr);
        ASSERT_NE(cooling->Cooler, nullptr);
        EXPECT_TRUE(cooling->Cooler->Id.value.equal("a"));
        EXPECT_EQ(cooling->Cooled, nullptr);
    });
}

TEST_F(Upcall, ElementThatIsNoInstance_IsNullButCounts) {
    answer_with({{CMPI_instance, CMPI_goodValue, {}}, fake::boolean_data(true), fan_data()});
    within_request([&] {
        Instance_Enumerator found;
        EXPECT_EQ(ask(found), 0);
        EXPECT_EQ(found(), nullptr);
        found++;
        EXPECT_EQ(found(), nullptr);
        found++;
        ASSERT_TRUE(found);
        cimple::unref(found());
        found++;
        EXPECT_FALSE(found);
        EXPECT_EQ(found(), nullptr);
    });
}

TEST_F(Upcall, InstancesLeftInTheEnumerator_AreFreedWithIt) {
    answer_with({fan_data(), fan_data(), fan_data()});
    within_request([&] {
        const std::uint64_t before = cimple::instance_count();
        {
            Instance_Enumerator found;
            EXPECT_EQ(ask(found), 0);
            found++;
            EXPECT_EQ(cimple::instance_count(), before + 3);
        }
        EXPECT_EQ(cimple::instance_count(), before);
    });
}

TEST_F(Upcall, SecondAnswer_ReplacesTheFirst) {
    answer_with({fan_data(), fan_data()});
    within_request([&] {
        Instance_Enumerator found;
        EXPECT_EQ(ask(found), 0);
        found++;
        answer_with({fan_data()});
        EXPECT_EQ(ask(found), 0);
        ASSERT_TRUE(found);
        found++;
        EXPECT_FALSE(found);
    });
}

TEST_F(Upcall, RefusedUpcall_FailsAndLeavesTheEnumeratorEmpty) {
    within_request([&] {
        Instance_Enumerator found;
        answer_with({fan_data()});
        EXPECT_EQ(ask(found), 0);
        broker.onEnumerate = [](const fake::Path&, CMPIStatus* status) -> CMPIEnumeration* {
            status->rc = CMPI_RC_ERR_INVALID_CLASS;
            return nullptr;
        };
        EXPECT_NE(ask(found), 0);
        EXPECT_FALSE(found);
    });
}

TEST_F(Upcall, AnswerWithoutAnEnumeration_Fails) {
    broker.onEnumerate = [](const fake::Path&, CMPIStatus*) -> CMPIEnumeration* { return nullptr; };
    within_request([&] {
        Instance_Enumerator found;
        EXPECT_NE(ask(found), 0);
    });
}

TEST_F(Upcall, AnswerThatBreaksOff_FailsAndLeavesTheEnumeratorEmpty) {
    Interrupted_Enumeration answer(fan_data(), CMPI_RC_ERR_ACCESS_DENIED);
    broker.onEnumerate = [&](const fake::Path&, CMPIStatus*) { return &answer; };
    within_request([&] {
        Instance_Enumerator found;
        EXPECT_NE(ask(found), 0);
        EXPECT_FALSE(found);
    });
}

TEST_F(Upcall, AnswerThatEndsByStatus_IsComplete) {
    Interrupted_Enumeration answer(fan_data(), CMPI_RC_NO_MORE_ELEMENTS);
    broker.onEnumerate = [&](const fake::Path&, CMPIStatus*) { return &answer; };
    within_request([&] {
        Instance_Enumerator found;
        EXPECT_EQ(ask(found), 0);
        ASSERT_TRUE(found);
        found++;
        EXPECT_FALSE(found);
    });
}

TEST_F(Upcall, ValueThatDoesNotFit_Fails) {
    auto* const fan = broker.arena.instance(fan_path());
    fan->with("Speed", fake::integer_data(CMPI_uint32, 65536));
    answer_with({fan_data(), broker.arena.instance_data(fan)});
    within_request([&] {
        Instance_Enumerator found;
        EXPECT_NE(ask(found), 0);
        EXPECT_FALSE(found);
    });
}

TEST_F(Upcall, ServerWithoutUpcalls_Fails) {
    within_request([&] {
        Instance_Enumerator found;
        broker.services.enumerateInstances = nullptr;
        EXPECT_NE(ask(found), 0);
        broker.bft = nullptr;
        EXPECT_NE(ask(found), 0);
    });
}

TEST_F(Upcall, OutsideOfARequest_Fails) {
    answer_with({fan_data()});
    Instance_Enumerator found;
    EXPECT_NE(ask(found), 0);
    within_request([&] { std::jthread([&] { EXPECT_NE(ask(found), 0); }); });
    EXPECT_NE(ask(found), 0);
    EXPECT_EQ(asked, "");
}

TEST_F(Upcall, NestedRequest_HasItsOwnContextAndRestoresTheOuterOne) {
    CMPIContext nestedContext{};
    fake::Result nestedResult;
    Instance_Enumerator found;
    std::vector<const CMPIContext*> contexts;
    fanScript.enumInstances = [&](const ACME_Fan*, auto*) { return ask(found); };
    broker.onEnumerate = [&](const fake::Path&, CMPIStatus*) {
        contexts.push_back(broker.upcallContext);
        if (contexts.size() == 1) {
            EXPECT_EQ(to_text(fans.instances->ft->enumerateInstances(
                          fans.instances, &nestedContext, &nestedResult, class_path("ACME_Fan"),
                          nullptr)),
                      "0");
        }
        return broker.arena.enumeration({});
    };
    EXPECT_EQ(to_text(within_request([&] {
                  EXPECT_EQ(ask(found), 0);
                  EXPECT_EQ(ask(found), 0);
              })),
              "0");
    EXPECT_THAT(contexts, ElementsAre(&context, &nestedContext, &context));
    EXPECT_EQ(nestedResult.ends, 1);
    EXPECT_EQ(result.ends, 1);
}

TEST_F(Upcall, NestedRequestThatFails_RestoresTheOuterOne) {
    fanScript.enumInstances = [](const ACME_Fan*, auto*) -> int { throw 1; };
    within_request([&] {
        fake::Result nestedResult;
        CMPIContext nestedContext{};
        fans.instances->ft->enumerateInstances(fans.instances, &nestedContext, &nestedResult,
                                               class_path("ACME_Fan"), nullptr);
        Instance_Enumerator found;
        answer_with({});
        EXPECT_EQ(ask(found), 0);
        EXPECT_EQ(broker.upcallContext, &context);
    });
}

TEST_F(Upcall, NestedRequestToTheSameProvider_FailsInsteadOfWaitingForEver) {
    broker.onEnumerate = [&](const fake::Path&, CMPIStatus* status) -> CMPIEnumeration* {
        fake::Result nestedResult;
        *status = cools.instances->ft->enumerateInstances(cools.instances, &context, &nestedResult,
                                                          class_path("ACME_Cools"), nullptr);
        EXPECT_EQ(to_text(*status),
                  "1: ACME_Cools_Provider: enumerateInstances failed: the provider is still "
                  "handling a request of the same thread.");
        return nullptr;
    };
    EXPECT_EQ(to_text(within_request([&] {
                  Instance_Enumerator found;
                  EXPECT_NE(ask(found), 0);
              })),
              "0");
}

TEST_F(Upcall, NestedRequestOnAnotherThread_IsHandled) {
    fake::Result nestedResult;
    fanScript.enumInstances = [](const ACME_Fan*, auto* handler) {
        handler->handle(make_fan("a", 1));
        return 0;
    };
    broker.onEnumerate = [&](const fake::Path&, CMPIStatus* status) {
        std::jthread([&] {
            *status = fans.instances->ft->enumerateInstances(
                fans.instances, &context, &nestedResult, class_path("ACME_Fan"), nullptr);
        }).join();
        return broker.arena.enumeration({});
    };
    EXPECT_EQ(to_text(within_request([&] {
                  Instance_Enumerator found;
                  EXPECT_EQ(ask(found), 0);
              })),
              "0");
    EXPECT_EQ(nestedResult.answers.size(), 1u);
}
