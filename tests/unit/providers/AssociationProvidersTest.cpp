// The computed associations: which pairs they deliver, in which order, and what fails them.
#include <fakes/FakeCimServer.h>
#include <framework/visit.h>
#include <gmock/gmock.h>
#include <providers/ParkedInstances.h>
#include <providers/QUVSG_BMCI2C_AffectedJobElement_Provider.h>
#include <providers/QUVSG_BMCI2C_AvailableDiagnosticService_Provider.h>
#include <providers/QUVSG_BMCI2C_ElementCapabilities_Provider.h>
#include <providers/QUVSG_BMCI2C_ElementSetting_Provider.h>
#include <providers/QUVSG_BMCI2C_OwningJobElement_Provider.h>
#include <providers/QUVSG_BMCI2C_RecordAppliesToElement_Provider.h>
#include <providers/QUVSG_BMCI2C_UseOfLog_Provider.h>
#include <schema/QUVSG_BMCI2C_HelpService.h>

#include <map>

#include "Enumeration.h"
#include "ProviderFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Endpoints = std::vector<std::string>;

// Instances of a class, told apart by their captions.
template <class Class>
void Serve(const Endpoints& captions) {
    FakeCimServer::Script(Class::static_meta_class.name, [captions] {
        std::vector<cimple::Instance*> instances;
        for (const std::string& caption : captions) {
            auto* instance = cimple::create<Class>();
            instance->Caption = caption;
            instance->name_space = "root/QUVSD";
            instances.push_back(instance);
        }
        return instances;
    });
}

std::string CaptionOf(const cimple::Instance* instance) {
    if (instance == nullptr) return "null";
    const cimple::Meta_Feature& caption = *cimple::find_feature(*instance->meta_class, "Caption");
    return cimple::visit_property(*instance, caption, [](const auto& property) -> std::string {
        if constexpr (requires { property.value.c_str(); }) return property.value.c_str();
        return "?";
    });
}

// Each association as "FirstRole=caption SecondRole=caption", by the class's order of roles.
std::vector<std::string> Pairs(const Enumeration& enumeration) {
    std::vector<std::string> pairs;
    for (const auto& instance : enumeration.instances) {
        std::string pair;
        for (std::size_t i = 0; i < instance->meta_class->feature_count; ++i) {
            const cimple::Meta_Feature& feature = instance->meta_class->features[i];
            if (!cimple::is_reference(feature)) {
                EXPECT_TRUE(cimple::is_null_at(*instance, feature)) << feature.name;
                continue;
            }
            pair += (pair.empty() ? "" : " ") + std::string(feature.name) + "=" +
                    CaptionOf(cimple::reference_at(*instance, feature));
        }
        pairs.push_back(pair);
    }
    return pairs;
}

class AssociationProviders : public ProviderTest {
protected:
    AssociationProviders() {
        FakeCimServer::Reset();
        Serve<QUVSG_BMCI2C_ManagedSystemElement>({"element"});
        Serve<QUVSG_BMCI2C_ConcreteJob>({"job"});
        Serve<QUVSG_BMCI2C_DiagnosticService>({"service"});
        Serve<QUVSG_BMCI2C_DiagnosticServiceRecord>({"record"});
        Serve<QUVSG_BMCI2C_DiagnosticsLog>({"log"});
    }

    static std::vector<std::string> TraceOf(const std::string& name, const std::string& outcome) {
        return {"+++" + name + "::enum_instances()\n",
                "---" + name + "::enum_instances() " + outcome + "\n"};
    }
};

}  // namespace

TEST_F(AssociationProviders, AffectedJobElement_TiesElementAndJob) {
    QUVSG_BMCI2C_AffectedJobElement_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(Pairs(result), ElementsAre("AffectedElement=element AffectingElement=job"));
    EXPECT_THAT(FakeCimServer::calls, ElementsAre("root/QUVSD:QUVSG_BMCI2C_ManagedSystemElement",
                                                  "root/QUVSD:QUVSG_BMCI2C_ConcreteJob"));
    EXPECT_EQ(Trace(), TraceOf("QUVSG_BMCI2C_AffectedJobElement_Provider", "OK"));
}

TEST_F(AssociationProviders, OwningJobElement_TiesServiceAndJob) {
    QUVSG_BMCI2C_OwningJobElement_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_OwningJobElement>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(Pairs(result), ElementsAre("OwningElement=service OwnedElement=job"));
    EXPECT_THAT(FakeCimServer::calls, ElementsAre("root/QUVSD:QUVSG_BMCI2C_DiagnosticService",
                                                  "root/QUVSD:QUVSG_BMCI2C_ConcreteJob"));
    EXPECT_EQ(Trace(), TraceOf("QUVSG_BMCI2C_OwningJobElement_Provider", "OK"));
}

TEST_F(AssociationProviders, UseOfLog_TiesLogAndService) {
    QUVSG_BMCI2C_UseOfLog_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_UseOfLog>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(Pairs(result), ElementsAre("Antecedent=log Dependent=service"));
    EXPECT_THAT(FakeCimServer::calls, ElementsAre("root/QUVSD:QUVSG_BMCI2C_DiagnosticService",
                                                  "root/QUVSD:QUVSG_BMCI2C_DiagnosticsLog"));
    EXPECT_EQ(Trace(), TraceOf("QUVSG_BMCI2C_UseOfLog_Provider", "OK"));
}

TEST_F(AssociationProviders, RecordAppliesToElement_DeliversElementsOutermost) {
    Serve<QUVSG_BMCI2C_ManagedSystemElement>({"element 1", "element 2"});
    Serve<QUVSG_BMCI2C_DiagnosticServiceRecord>({"record 1", "record 2"});
    QUVSG_BMCI2C_RecordAppliesToElement_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_RecordAppliesToElement>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(
        Pairs(result),
        ElementsAre("Record=record 1 Element=element 1", "Record=record 2 Element=element 1",
                    "Record=record 1 Element=element 2", "Record=record 2 Element=element 2"));
    EXPECT_THAT(FakeCimServer::calls,
                ElementsAre("root/QUVSD:QUVSG_BMCI2C_ManagedSystemElement",
                            "root/QUVSD:QUVSG_BMCI2C_DiagnosticServiceRecord"));
    EXPECT_EQ(Trace(), TraceOf("QUVSG_BMCI2C_RecordAppliesToElement_Provider", "OK"));
}

TEST_F(AssociationProviders, UseOfLog_DeliversServicesOutermost) {
    Serve<QUVSG_BMCI2C_DiagnosticService>({"service 1", "service 2"});
    Serve<QUVSG_BMCI2C_DiagnosticsLog>({"log 1", "log 2"});
    QUVSG_BMCI2C_UseOfLog_Provider provider;
    EXPECT_THAT(
        Pairs(Enumerate<QUVSG_BMCI2C_UseOfLog>(provider)),
        ElementsAre("Antecedent=log 1 Dependent=service 1", "Antecedent=log 2 Dependent=service 1",
                    "Antecedent=log 1 Dependent=service 2",
                    "Antecedent=log 2 Dependent=service 2"));
}

TEST_F(AssociationProviders, AvailableDiagnosticService_OnASupportedMachine_TiesServiceAndElement) {
    QUVSG_BMCI2C_AvailableDiagnosticService_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_AvailableDiagnosticService>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(Pairs(result), ElementsAre("ServiceProvided=I2C Bus Test UserOfService=I2C Bus"));
    EXPECT_THAT(FakeCimServer::calls, IsEmpty());
    EXPECT_EQ(Trace(), TraceOf("QUVSG_BMCI2C_AvailableDiagnosticService_Provider", "OK"));
}

TEST_F(AssociationProviders, AvailableDiagnosticService_OnAnotherMachine_Fails) {
    FakeDiagnostics::machineType = "9999";
    QUVSG_BMCI2C_AvailableDiagnosticService_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_AvailableDiagnosticService>(provider);
    EXPECT_EQ(result.status, 70);
    EXPECT_THAT(result.instances, IsEmpty());
    EXPECT_EQ(Trace(), TraceOf("QUVSG_BMCI2C_AvailableDiagnosticService_Provider", "FAIL"));
}

TEST_F(AssociationProviders, ElementSetting_GrowsByOneAtEachEnumeration) {
    QUVSG_BMCI2C_ElementSetting_Provider provider;
    const std::string pair = "Element=I2C Bus Test Setting=QUVSG_BMCI2C_DiagnosticSetting";
    for (std::size_t n = 1; n <= 3; ++n) {
        const Enumeration result = Enumerate<QUVSG_BMCI2C_ElementSetting>(provider);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(Pairs(result), std::vector<std::string>(n, pair));
    }
    EXPECT_THAT(FakeCimServer::calls, IsEmpty());
}

// Clients look for this name in traces; no class is called so.
TEST_F(AssociationProviders, ElementSetting_TracesUnderTheNameElementSettingData) {
    QUVSG_BMCI2C_ElementSetting_Provider provider;
    Enumerate<QUVSG_BMCI2C_ElementSetting>(provider);
    EXPECT_EQ(Trace(), TraceOf("QUVSG_BMCI2C_ElementSettingData_Provider", "OK"));
}

TEST_F(AssociationProviders, NoJob_FailsBothJobAssociations) {
    Serve<QUVSG_BMCI2C_ConcreteJob>({});
    QUVSG_BMCI2C_AffectedJobElement_Provider affected;
    QUVSG_BMCI2C_OwningJobElement_Provider owning;
    EXPECT_EQ(Enumerate<QUVSG_BMCI2C_AffectedJobElement>(affected).status, 70);
    EXPECT_EQ(Trace(), TraceOf("QUVSG_BMCI2C_AffectedJobElement_Provider", "FAIL"));
    FakeTraceSink::lines.clear();
    EXPECT_EQ(Enumerate<QUVSG_BMCI2C_OwningJobElement>(owning).status, 70);
    EXPECT_EQ(Trace(), TraceOf("QUVSG_BMCI2C_OwningJobElement_Provider", "FAIL"));
}

TEST_F(AssociationProviders, FailedUpCall_FailsWithoutDelivering) {
    FakeCimServer::Reset();
    Serve<QUVSG_BMCI2C_DiagnosticService>({"service"});
    QUVSG_BMCI2C_UseOfLog_Provider log;
    QUVSG_BMCI2C_RecordAppliesToElement_Provider record;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_UseOfLog>(log);
    EXPECT_EQ(result.status, 70);
    EXPECT_THAT(result.instances, IsEmpty());
    EXPECT_EQ(Trace(), TraceOf("QUVSG_BMCI2C_UseOfLog_Provider", "FAIL"));
    FakeTraceSink::lines.clear();
    EXPECT_EQ(Enumerate<QUVSG_BMCI2C_RecordAppliesToElement>(record).status, 70);
    EXPECT_EQ(Trace(), TraceOf("QUVSG_BMCI2C_RecordAppliesToElement_Provider", "FAIL"));
}

TEST_F(AssociationProviders, EndpointOfAnotherClass_GivesANullReference) {
    FakeCimServer::Script("QUVSG_BMCI2C_ConcreteJob", [] {
        return std::vector<cimple::Instance*>{cimple::create<QUVSG_BMCI2C_HelpService>()};
    });
    QUVSG_BMCI2C_AffectedJobElement_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(Pairs(result), ElementsAre("AffectedElement=element AffectingElement=null"));
}

TEST_F(AssociationProviders, EmptyAnswerInTheMiddle_EndsTheList) {
    FakeCimServer::Script("QUVSG_BMCI2C_ConcreteJob", [] {
        return std::vector<cimple::Instance*>{cimple::create<QUVSG_BMCI2C_ConcreteJob>(), nullptr,
                                              cimple::create<QUVSG_BMCI2C_ConcreteJob>()};
    });
    QUVSG_BMCI2C_AffectedJobElement_Provider provider;
    EXPECT_EQ(Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider).instances.size(), 1U);
}

TEST_F(AssociationProviders, OneEndpoint_IsReferencedByEveryAssociationOfItsRow) {
    Serve<QUVSG_BMCI2C_ConcreteJob>({"job 1", "job 2"});
    QUVSG_BMCI2C_AffectedJobElement_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider);
    ASSERT_EQ(result.instances.size(), 2U);
    const auto elementOf = [&](std::size_t i) {
        return static_cast<QUVSG_BMCI2C_AffectedJobElement*>(result.instances[i].get())
            ->AffectedElement;
    };
    EXPECT_EQ(elementOf(0), elementOf(1));
    EXPECT_STREQ(elementOf(0)->name_space.c_str(), "root/QUVSD");
}

TEST_F(AssociationProviders, LocallyBuiltEndpoints_HaveNoNameSpaceOfTheirOwn) {
    QUVSG_BMCI2C_AvailableDiagnosticService_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_AvailableDiagnosticService>(provider);
    const auto* association =
        static_cast<QUVSG_BMCI2C_AvailableDiagnosticService*>(result.instances.at(0).get());
    EXPECT_STREQ(association->ServiceProvided->name_space.c_str(), "");
    EXPECT_STREQ(association->UserOfService->name_space.c_str(), "");
}

TEST_F(AssociationProviders, RefilledLists_ParkTwoEndpointsPerEnumeration) {
    QUVSG_BMCI2C_AffectedJobElement_Provider provider;
    Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider);
    const std::size_t before = ParkedInstanceCount();
    const auto instancesBefore = cimple::instance_count();
    for (int n = 0; n < 10; ++n) Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider);
    EXPECT_EQ(ParkedInstanceCount() - before, 20U);
    EXPECT_EQ(cimple::instance_count() - instancesBefore, 20U);
}

TEST_F(AssociationProviders, ElementSetting_ParksOnlyItsServices) {
    QUVSG_BMCI2C_ElementSetting_Provider provider;
    Enumerate<QUVSG_BMCI2C_ElementSetting>(provider);
    const std::size_t before = ParkedInstanceCount();
    const auto instancesBefore = cimple::instance_count();
    for (int n = 0; n < 10; ++n) Enumerate<QUVSG_BMCI2C_ElementSetting>(provider);
    EXPECT_EQ(ParkedInstanceCount() - before, 10U);
    EXPECT_EQ(cimple::instance_count() - instancesBefore, 20U);  // a service and a setting each
}

TEST_F(AssociationProviders, DestroyedProvider_LeavesItsEndpointsAllocated) {
    const std::size_t before = ParkedInstanceCount();
    {
        QUVSG_BMCI2C_AffectedJobElement_Provider provider;
        Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider);
    }
    EXPECT_EQ(ParkedInstanceCount() - before, 2U);
}

TEST_F(AssociationProviders, DeliveredAssociation_OutlivesItsProvider) {
    Enumeration result;
    {
        QUVSG_BMCI2C_AffectedJobElement_Provider provider;
        result = Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider);
    }
    EXPECT_THAT(Pairs(result), ElementsAre("AffectedElement=element AffectingElement=job"));
}

TEST_F(AssociationProviders, ElementCapabilities_FillsItsListsButDeliversNothing) {
    QUVSG_BMCI2C_ElementCapabilities_Provider provider;
    provider.GetDiagService();
    provider.GetDiagServCapa();
    EXPECT_THAT(FakeCimServer::calls,
                ElementsAre("root/QUVSD:QUVSG_BMCI2C_DiagnosticService",
                            "root/QUVSD:QUVSG_BMCI2C_DiagnosticServiceCapabilities"));
    const Enumeration result = Enumerate<QUVSG_BMCI2C_ElementCapabilities>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.instances, IsEmpty());
}
