#include "Adapter_Fixture.h"

using cimple::Enum_Instances_Handler;
using testing::ElementsAre;

namespace {

class InstanceInterface : public Adapter_Fixture {
protected:
    CMPIStatus enumerate_names() {
        return fans.instances->ft->enumerateInstanceNames(fans.instances, &context, &result,
                                                          class_path("ACME_Fan"));
    }
    CMPIStatus get(const char** properties = nullptr) {
        return fans.instances->ft->getInstance(fans.instances, &context, &result, fan_path(),
                                               properties);
    }
    CMPIStatus create_from(fake::Instance* source) {
        return fans.instances->ft->createInstance(fans.instances, &context, &result,
                                                  class_path("ACME_Fan"), source);
    }
    CMPIStatus modify(fake::Instance* source) {
        return fans.instances->ft->modifyInstance(fans.instances, &context, &result, fan_path(),
                                                  source, nullptr);
    }
    CMPIStatus remove() {
        return fans.instances->ft->deleteInstance(fans.instances, &context, &result, fan_path());
    }

    static int two_devices(const ACME_Fan*, Enum_Instances_Handler<ACME_Fan>* handler) {
        handler->handle(make_fan("a", 1));
        handler->handle(make_fan("b", 2));
        return 0;
    }
};

}  // namespace

TEST_F(InstanceInterface, EnumerateInstances_GivesEachAndOneEnd) {
    fanScript.enumInstances = &two_devices;
    const char* nothing[] = {nullptr};
    EXPECT_EQ(to_text(enumerate_fans(nothing)), "0");
    EXPECT_THAT(result.answers,
                ElementsAre("root/acme:ACME_Fan.Id=\"a\",Slot=1 {Id=\"a\", Slot=1} filter  keys "
                            "Id,Slot",
                            "root/acme:ACME_Fan.Id=\"b\",Slot=2 {Id=\"b\", Slot=2} filter  keys "
                            "Id,Slot"));
    EXPECT_EQ(result.ends, 1);
}

TEST_F(InstanceInterface, EnumerateInstances_TellsTheProviderNameSpaceAndNothingElse) {
    fanScript.enumInstances = [](const ACME_Fan* model, auto*) {
        EXPECT_TRUE(model->name_space.equal("root/acme"));
        EXPECT_EQ(model->Id.null, 1);
        return 0;
    };
    EXPECT_EQ(to_text(enumerate_fans()), "0");
    EXPECT_EQ(result.ends, 1);
}

TEST_F(InstanceInterface, EnumerateInstanceNames_GivesPaths) {
    fanScript.enumInstances = &two_devices;
    EXPECT_EQ(to_text(enumerate_names()), "0");
    EXPECT_THAT(result.answers, ElementsAre("root/acme:ACME_Fan.Id=\"a\",Slot=1",
                                            "root/acme:ACME_Fan.Id=\"b\",Slot=2"));
    EXPECT_EQ(result.ends, 1);
}

TEST_F(InstanceInterface, PropertyList_IsHonouredInAnyLetterCaseAndKeysAreAdded) {
    fanScript.enumInstances = [](const ACME_Fan*, auto* handler) {
        ACME_Fan* fan = make_fan("a", 1);
        fan->Speed = 900;
        fan->Caption = "left";
        handler->handle(fan);
        return 0;
    };
    const char* wanted[] = {"speed", "Colour", nullptr};
    EXPECT_EQ(to_text(enumerate_fans(wanted)), "0");
    EXPECT_THAT(result.answers, ElementsAre("root/acme:ACME_Fan.Id=\"a\",Slot=1 {Id=\"a\", Slot=1, "
                                            "Speed=900} filter speed,Colour keys Id,Slot"));
}

TEST_F(InstanceInterface, FailedEnumeration_IsFailedAndHasNoEnd) {
    fanScript.enumInstances = [](const ACME_Fan*, auto*) { return 70; };
    EXPECT_EQ(to_text(enumerate_fans()),
              "1: ACME_Fan_Provider: enumerateInstances failed: the provider reports a failure "
              "(status 70).");
    EXPECT_EQ(result.ends, 0);
}

TEST_F(InstanceInterface, Get_PassesTheKeysAndReturnsTheInstance) {
    fanScript.getInstance = [](const ACME_Fan* model, ACME_Fan*& instance) {
        EXPECT_TRUE(model->name_space.equal("root/acme"));
        instance = make_fan(model->Id.value.c_str(), model->Slot.value);
        instance->Speed = 5;
        return 0;
    };
    const char* wanted[] = {"Speed", nullptr};
    EXPECT_EQ(to_text(get(wanted)), "0");
    EXPECT_THAT(result.answers, ElementsAre("root/acme:ACME_Fan.Id=\"a\",Slot=3 {Id=\"a\", Slot=3, "
                                            "Speed=5} filter Speed keys Id,Slot"));
    EXPECT_EQ(result.ends, 1);
}

TEST_F(InstanceInterface, GetWithoutAnInstance_IsNotFound) {
    fanScript.getInstance = [](const ACME_Fan*, ACME_Fan*&) { return 0; };
    EXPECT_EQ(to_text(get()),
              "6: ACME_Fan_Provider: getInstance failed: there is no such instance.");
}

TEST_F(InstanceInterface, GetThatFailsWithAnInstance_FreesIt) {
    fanScript.getInstance = [](const ACME_Fan*, ACME_Fan*& instance) {
        instance = make_fan("a", 3);
        return 61;
    };
    EXPECT_EQ(get().rc, CMPI_RC_ERR_NOT_SUPPORTED);
    EXPECT_TRUE(result.answers.empty());
}

TEST_F(InstanceInterface, Create_PassesThePropertiesAndReturnsThePath) {
    fanScript.createInstance = [](ACME_Fan* instance) {
        EXPECT_EQ(instance->Speed.value, 900);
        EXPECT_EQ(instance->Caption.null, 1);
        return 0;
    };
    auto* const source = broker.arena.instance(fan_path());
    source->with("Speed", fake::integer_data(CMPI_uint16, 900));
    source->with("Caption", fake::null_data(CMPI_string));
    EXPECT_EQ(to_text(create_from(source)), "0");
    EXPECT_THAT(result.answers, ElementsAre("root/acme:ACME_Fan.Id=\"a\",Slot=3"));
    EXPECT_EQ(result.ends, 1);
}

TEST_F(InstanceInterface, CreateOfAnotherClass_IsAnInvalidParameter) {
    fanScript.createInstance = [](ACME_Fan*) { return 0; };
    auto* const source = broker.arena.instance(class_path("ACME_Device"));
    EXPECT_EQ(to_text(create_from(source)),
              "4: ACME_Fan_Provider: createInstance failed: the class ACME_Device does not derive "
              "from ACME_Fan.");
}

TEST_F(InstanceInterface, Modify_PassesPathAndProperties) {
    fanScript.modifyInstance = [](const ACME_Fan* model, const ACME_Fan* instance) {
        EXPECT_EQ(model->Slot.value, 3);
        EXPECT_EQ(instance->Speed.value, 900);
        return 0;
    };
    auto* const source = broker.arena.instance(class_path("ACME_Fan"));
    source->with("Speed", fake::integer_data(CMPI_uint16, 900));
    EXPECT_EQ(to_text(modify(source)), "0");
    EXPECT_EQ(result.ends, 1);
}

TEST_F(InstanceInterface, Delete_PassesThePath) {
    fanScript.deleteInstance = [](const ACME_Fan* instance) {
        EXPECT_TRUE(instance->Id.value.equal("a"));
        return 0;
    };
    EXPECT_EQ(to_text(remove()), "0");
    EXPECT_EQ(result.ends, 1);
}

TEST_F(InstanceInterface, DefaultOperations_AreNotSupported) {
    auto* const source = broker.arena.instance(fan_path());
    EXPECT_EQ(to_text(get()),
              "7: ACME_Fan_Provider: getInstance failed: the provider does not support it (status "
              "61).");
    EXPECT_EQ(to_text(create_from(source)),
              "7: ACME_Fan_Provider: createInstance failed: the provider does not support it "
              "(status 81).");
    EXPECT_EQ(to_text(remove()),
              "7: ACME_Fan_Provider: deleteInstance failed: the provider does not support it "
              "(status 91).");
    EXPECT_EQ(to_text(modify(source)),
              "7: ACME_Fan_Provider: modifyInstance failed: the provider does not support it "
              "(status 101).");
    EXPECT_EQ(result.ends, 0);
}

TEST_F(InstanceInterface, Query_IsNotSupported) {
    const CMPIStatus status = fans.instances->ft->execQuery(
        fans.instances, &context, &result, class_path("ACME_Fan"), "SELECT * FROM ACME_Fan", "WQL");
    EXPECT_EQ(to_text(status),
              "7: ACME_Fan_Provider: execQuery failed: queries are not supported.");
}
