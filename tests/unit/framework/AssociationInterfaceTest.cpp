#include <framework/derived_associations.h>

#include "Adapter_Fixture.h"

using cimple::Instance;
using cimple::String;
using testing::ElementsAre;

namespace {

class AssociationInterface : public Adapter_Fixture {
protected:
    CMPIStatus associators(const char* associationClass = nullptr,
                           const char** properties = nullptr) {
        return cools.associations->ft->associators(cools.associations, &context, &result,
                                                   fan_path(), associationClass, "ACME_Device",
                                                   "Cooler", "Cooled", properties);
    }
    CMPIStatus associator_names(const char* associationClass = nullptr) {
        return cools.associations->ft->associatorNames(cools.associations, &context, &result,
                                                       fan_path(), associationClass, nullptr,
                                                       nullptr, nullptr);
    }
    CMPIStatus references(const char* resultClass = nullptr, const char** properties = nullptr) {
        return cools.associations->ft->references(cools.associations, &context, &result, fan_path(),
                                                  resultClass, "Cooler", properties);
    }
    CMPIStatus reference_names(const char* resultClass = nullptr) {
        return cools.associations->ft->referenceNames(cools.associations, &context, &result,
                                                      fan_path(), resultClass, nullptr);
    }
};

ACME_Cools* make_association() {
    auto* const association = cimple::create<ACME_Cools>();
    association->Cooler = make_fan("a", 3);
    association->Cooled = cimple::create<ACME_Device>();
    association->Cooled->Id = "d";
    association->Cooled->name_space = "root/other";
    return association;
}

constexpr char kAssociationPath[] =
    "root/acme:ACME_Cools.Cooler=\"root/acme:ACME_Fan.Id=\"a\",Slot=3\","
    "Cooled=\"root/other:ACME_Device.Id=\"d\"\"";

int deliver_device(const Instance*, const String&, const String&, const String&,
                   const std::function<void(Instance*)>& handle) {
    auto* const device = cimple::create<ACME_Device>();
    device->Id = "d";
    device->Caption = "disk";
    handle(device);
    return 0;
}

int deliver_association(const Instance*, const ACME_Cools*, const String&,
                        cimple::Enum_References_Handler<ACME_Cools>* handler) {
    handler->handle(make_association());
    return 0;
}

}  // namespace

TEST_F(AssociationInterface, DefaultOperations_AreNotSupportedAndHaveNoEnd) {
    EXPECT_EQ(
        to_text(associators()),
        "7: ACME_Cools_Provider: associators failed: the provider does not support it (status "
        "171).");
    EXPECT_EQ(to_text(associator_names()),
              "7: ACME_Cools_Provider: associatorNames failed: the provider does not support it "
              "(status 111).");
    EXPECT_EQ(to_text(references()),
              "7: ACME_Cools_Provider: references failed: the provider does not support it (status "
              "121).");
    EXPECT_EQ(to_text(reference_names()),
              "7: ACME_Cools_Provider: referenceNames failed: the provider does not support it "
              "(status 121).");
    EXPECT_EQ(result.ends, 0);
}

TEST_F(AssociationInterface, Associators_PassSourceAndFilterAndReturnInstances) {
    coolsScript.associators = [](const Instance* source, const String& resultClass,
                                 const String& role, const String& resultRole,
                                 const std::function<void(Instance*)>& handle) {
        EXPECT_EQ(source->meta_class, &ACME_Fan::static_meta_class);
        EXPECT_EQ(static_cast<const ACME_Fan*>(source)->Slot.value, 3);
        EXPECT_TRUE(source->name_space.equal("root/acme"));
        EXPECT_TRUE(resultClass.equal("ACME_Device"));
        EXPECT_TRUE(role.equal("Cooler"));
        EXPECT_TRUE(resultRole.equal("Cooled"));
        return deliver_device(source, resultClass, role, resultRole, handle);
    };
    EXPECT_EQ(to_text(associators()), "0");
    EXPECT_THAT(
        result.answers,
        ElementsAre("root/acme:ACME_Device.Id=\"d\" {Id=\"d\", Slot=null, Caption=\"disk\"}"));
    EXPECT_EQ(result.ends, 1);
}

TEST_F(AssociationInterface, Associators_HonourThePropertyList) {
    coolsScript.associators = &deliver_device;
    const char* wanted[] = {"Slot", nullptr};
    EXPECT_EQ(to_text(associators(nullptr, wanted)), "0");
    EXPECT_THAT(result.answers,
                ElementsAre("root/acme:ACME_Device.Id=\"d\" {Id=\"d\", Slot=null} filter Slot keys "
                            "Id,Slot"));
}

TEST_F(AssociationInterface, AssociatorNames_ReturnPathsAndMissingFiltersAreEmpty) {
    coolsScript.associators = [](const Instance* source, const String& resultClass,
                                 const String& role, const String& resultRole,
                                 const std::function<void(Instance*)>& handle) {
        EXPECT_TRUE(resultClass.empty() && role.empty() && resultRole.empty());
        return deliver_device(source, resultClass, role, resultRole, handle);
    };
    EXPECT_EQ(to_text(associator_names()), "0");
    EXPECT_THAT(result.answers, ElementsAre("root/acme:ACME_Device.Id=\"d\""));
    EXPECT_EQ(result.ends, 1);
}

TEST_F(AssociationInterface, References_ReturnAssociationsWithCompletePaths) {
    coolsScript.references = [](const Instance* source, const ACME_Cools* model, const String& role,
                                cimple::Enum_References_Handler<ACME_Cools>* handler) {
        EXPECT_EQ(source->meta_class, &ACME_Fan::static_meta_class);
        EXPECT_EQ(model->Cooler, nullptr);
        EXPECT_TRUE(model->name_space.equal("root/acme"));
        EXPECT_TRUE(role.equal("Cooler"));
        handler->handle(make_association());
        return 0;
    };
    EXPECT_EQ(to_text(references()), "0");
    EXPECT_THAT(result.answers, ElementsAre(std::string(kAssociationPath) +
                                            " {Cooler=\"root/acme:ACME_Fan.Id=\"a\",Slot=3\", "
                                            "Cooled=\"root/other:ACME_Device.Id=\"d\"\"}"));
    EXPECT_EQ(result.ends, 1);
}

TEST_F(AssociationInterface, ReferenceNames_ReturnPaths) {
    coolsScript.references = &deliver_association;
    EXPECT_EQ(to_text(reference_names()), "0");
    EXPECT_THAT(result.answers, ElementsAre(kAssociationPath));
    EXPECT_EQ(result.ends, 1);
}

TEST_F(AssociationInterface, NullReference_IsNullAndLeftOutOfThePath) {
    coolsScript.enumInstances = [](const ACME_Cools*, auto* handler) {
        auto* const association = cimple::create<ACME_Cools>();
        association->Cooler = make_fan("a", 3);
        handler->handle(association);
        return 0;
    };
    const CMPIStatus status = cools.instances->ft->enumerateInstances(
        cools.instances, &context, &result, class_path("ACME_Cools"), nullptr);
    EXPECT_EQ(to_text(status), "0");
    EXPECT_THAT(result.answers,
                ElementsAre("root/acme:ACME_Cools.Cooler=\"root/acme:ACME_Fan.Id=\"a\",Slot=3\" "
                            "{Cooler=\"root/acme:ACME_Fan.Id=\"a\",Slot=3\", Cooled=null}"));
}

TEST_F(AssociationInterface, OwnAssociationClass_IsAskedForInAnyLetterCase) {
    coolsScript.associators = &deliver_device;
    EXPECT_EQ(to_text(associators("acme_cools")), "0");
    EXPECT_EQ(result.answers.size(), 1u);
}

TEST_F(AssociationInterface, AnotherAssociationClass_GivesAnEmptyResult) {
    coolsScript.associators = &deliver_device;
    coolsScript.references = &deliver_association;
    EXPECT_EQ(to_text(associators("ACME_Heats")), "0");
    EXPECT_EQ(to_text(associator_names("ACME_Heats")), "0");
    EXPECT_EQ(to_text(references("ACME_Heats")), "0");
    EXPECT_EQ(to_text(reference_names("ACME_Heats")), "0");
    EXPECT_TRUE(result.answers.empty());
    EXPECT_EQ(result.ends, 4);
}

TEST_F(AssociationInterface, SourceOfAClassUnknownHere_IsABareInstance) {
    coolsScript.associators = [](const Instance* source, const String&, const String&,
                                 const String&, const std::function<void(Instance*)>&) {
        EXPECT_EQ(source->meta_class->feature_count, 0u);
        EXPECT_TRUE(source->name_space.equal("root/acme"));
        return 0;
    };
    const CMPIStatus status = cools.associations->ft->associatorNames(
        cools.associations, &context, &result,
        class_path("ACME_Pump")->with_key("Id", broker.arena.string_data("p")), nullptr, nullptr,
        nullptr, nullptr);
    EXPECT_EQ(to_text(status), "0");
}

TEST_F(AssociationInterface, AssociationOperationsOfAnotherClass_AreNotSupported) {
    const CMPIStatus status = fans.associations->ft->associatorNames(
        fans.associations, &context, &result, fan_path(), nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(to_text(status),
              "7: ACME_Fan_Provider: associatorNames failed: the provider does not support it "
              "(status -1).");
}

namespace {

// The provider supports no association request; the adapter answers from what it enumerates.
class DerivedAssociations : public AssociationInterface {
protected:
    DerivedAssociations() {
        cimple::derive_associations_if([] { return true; });
        coolsScript.enumInstances = [this](const ACME_Cools* model, auto* handler) {
            ++enumerations;
            EXPECT_TRUE(model->name_space.equal("root/acme"));
            handler->handle(link("a", "d"));
            handler->handle(link("a", "e"));
            handler->handle(link("a", "d"));  // as careless providers do
            handler->handle(link("b", "f"));
            handler->handle(cimple::create<ACME_Cools>());  // without ends
            return 0;
        };
    }
    ~DerivedAssociations() override { cimple::derive_associations_if(nullptr); }

    static ACME_Cools* link(const char* fan, const char* device) {
        auto* const association = cimple::create<ACME_Cools>();
        association->Cooler = make_fan(fan, 3);
        association->Cooled = cimple::create<ACME_Device>();
        association->Cooled->Id = device;
        association->Cooled->Caption = "disk";
        return association;
    }

    CMPIStatus names(const char* resultClass, const char* role, const char* resultRole) {
        return cools.associations->ft->associatorNames(cools.associations, &context, &result,
                                                       fan_path(), "ACME_Cools", resultClass, role,
                                                       resultRole);
    }

    int enumerations = 0;
};

constexpr char kDeviceD[] = "root/acme:ACME_Device.Id=\"d\"";
constexpr char kDeviceE[] = "root/acme:ACME_Device.Id=\"e\"";

}  // namespace

TEST_F(DerivedAssociations, AssociatorNames_AreTheOtherEndsEachOnce) {
    EXPECT_EQ(to_text(associator_names()), "0");
    EXPECT_THAT(result.answers, ElementsAre(kDeviceD, kDeviceE));
    EXPECT_EQ(result.ends, 1);
}

TEST_F(DerivedAssociations, Associators_AreTheInstancesOfTheLinks) {
    const char* wanted[] = {"Caption", nullptr};
    EXPECT_EQ(to_text(associators(nullptr, wanted)), "0");
    ASSERT_EQ(result.answers.size(), 2u);
    EXPECT_THAT(result.answers[0], testing::StartsWith(std::string(kDeviceD) + " {Id=\"d\""));
    EXPECT_THAT(result.answers[0], testing::HasSubstr("Caption=\"disk\""));
    EXPECT_EQ(result.ends, 1);
}

TEST_F(DerivedAssociations, References_AreTheLinksEachOnce) {
    EXPECT_EQ(to_text(references()), "0");
    EXPECT_EQ(result.answers.size(), 2u);
    EXPECT_EQ(to_text(reference_names("acme_cools")), "0");
    ASSERT_EQ(result.answers.size(), 4u);
    EXPECT_EQ(result.answers[2],
              "root/acme:ACME_Cools.Cooler=\"root/acme:ACME_Fan.Id=\"a\",Slot=3\","
              "Cooled=\"root/acme:ACME_Device.Id=\"d\"\"");
    EXPECT_EQ(result.ends, 2);
}

TEST_F(DerivedAssociations, ResultClassAndRoles_AreHonoured) {
    EXPECT_EQ(to_text(names("acme_device", "COOLER", "cooled")), "0");
    EXPECT_THAT(result.answers, ElementsAre(kDeviceD, kDeviceE));
    result.answers.clear();
    EXPECT_EQ(to_text(names("ACME_Fan", "", "")), "0");
    EXPECT_EQ(to_text(names("", "Cooled", "")), "0");
    EXPECT_EQ(to_text(names("", "", "Cooler")), "0");
    EXPECT_TRUE(result.answers.empty());
    EXPECT_EQ(result.ends, 4);
}

TEST_F(DerivedAssociations, OtherEnd_LeadsBack) {
    const CMPIStatus status = cools.associations->ft->associatorNames(
        cools.associations, &context, &result,
        class_path("ACME_Device")->with_key("Id", broker.arena.string_data("f")), nullptr, nullptr,
        nullptr, nullptr);
    EXPECT_EQ(to_text(status), "0");
    EXPECT_THAT(result.answers, ElementsAre("root/acme:ACME_Fan.Id=\"b\",Slot=3"));
}

TEST_F(DerivedAssociations, SourceThatNoReferenceHolds_EnumeratesNothing) {
    const CMPIStatus status = cools.associations->ft->associatorNames(
        cools.associations, &context, &result,
        class_path("ACME_Pump")->with_key("Id", broker.arena.string_data("a")), nullptr, nullptr,
        nullptr, nullptr);
    EXPECT_EQ(to_text(status), "0");
    EXPECT_EQ(to_text(names("", "Heater", "")), "0");
    EXPECT_TRUE(result.answers.empty());
    EXPECT_EQ(enumerations, 0);
    EXPECT_EQ(result.ends, 2);
}

TEST_F(DerivedAssociations, FailureOfTheEnumeration_IsPassedOn) {
    coolsScript.enumInstances = [](const ACME_Cools*, auto*) { return 70; };
    EXPECT_EQ(to_text(associator_names()),
              "1: ACME_Cools_Provider: associatorNames failed: the provider reports a failure "
              "(status 70).");
    EXPECT_EQ(result.ends, 0);
}

TEST_F(DerivedAssociations, ProviderThatSupportsTheRequest_AnswersItself) {
    coolsScript.associators = &deliver_device;
    EXPECT_EQ(to_text(associator_names()), "0");
    EXPECT_EQ(result.answers.size(), 1u);
    EXPECT_EQ(enumerations, 0);
}

TEST_F(DerivedAssociations, OtherClasses_StayUnsupported) {
    const CMPIStatus status = fans.associations->ft->associatorNames(
        fans.associations, &context, &result, fan_path(), nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(status.rc, CMPI_RC_ERR_NOT_SUPPORTED);
}
