// The endpoint lists of the computed associations: how they are filled, what fails them, and what
// they leave behind.
#include <providers/EndpointList.h>
#include <schema/QUVSG_BMCI2C_HelpService.h>

#include "AssociationFixture.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

using EndpointLists = AssociationTest;

// Fails to enumerate, delivers nothing and traces so.
template <class Association, class Provider>
void ExpectFailure() {
    const std::string provider = std::string(Association::static_meta_class.name) + "_Provider";
    FakeTraceSink::lines.clear();
    Provider failing;
    const Enumeration result = Enumerate<Association>(failing);
    EXPECT_EQ(result.status, 70) << provider;
    EXPECT_THAT(result.instances, IsEmpty()) << provider;
    EXPECT_THAT(FakeTraceSink::lines, Contains("+++" + provider + "::enum_instances()\n"));
    EXPECT_EQ(FakeTraceSink::lines.back(), "---" + provider + "::enum_instances() FAIL\n");
}

#define EXPECT_FAILURE(X) ExpectFailure<QUVSG_BMCI2C_##X, QUVSG_BMCI2C_##X##_Provider>()

// How many endpoints ten enumerations after the first let go of, and how many more instances exist.
using Parked = std::pair<std::size_t, std::size_t>;
template <class Association, class Provider>
Parked Growth() {
    Provider provider;
    Enumerate<Association>(provider);
    const std::size_t parked = ParkedInstanceCount();
    const auto instances = cimple::instance_count();
    for (int n = 0; n < 10; ++n) Enumerate<Association>(provider);
    return {ParkedInstanceCount() - parked, cimple::instance_count() - instances};
}

#define GROWTH(X) (Growth<QUVSG_BMCI2C_##X, QUVSG_BMCI2C_##X##_Provider>())

}  // namespace

TEST_F(EndpointLists, NoJob_FailsBothJobAssociations) {
    Serve<QUVSG_BMCI2C_ConcreteJob>({});
    EXPECT_FAILURE(AffectedJobElement);
    EXPECT_FAILURE(OwningJobElement);
}

TEST_F(EndpointLists, NoRecordOrLog_FailsTheirAssociations) {
    Serve<QUVSG_BMCI2C_DiagnosticServiceRecord>({});
    Serve<QUVSG_BMCI2C_DiagnosticsLog>({});
    EXPECT_FAILURE(RecordAppliesToElement);
    EXPECT_FAILURE(UseOfLog);
}

TEST_F(EndpointLists, NoOuterEndpoint_FailsThoughThereAreInnerOnes) {
    Serve<QUVSG_BMCI2C_ManagedSystemElement>({});
    Serve<QUVSG_BMCI2C_DiagnosticService>({});
    EXPECT_FAILURE(AffectedJobElement);
    EXPECT_FAILURE(OwningJobElement);
    EXPECT_FAILURE(RecordAppliesToElement);
    EXPECT_FAILURE(UseOfLog);
}

TEST_F(EndpointLists, FailedUpCall_FailsWithoutDelivering) {
    FakeCimServer::Reset();
    Serve<QUVSG_BMCI2C_DiagnosticService>({"service"});
    Serve<QUVSG_BMCI2C_ConcreteJob>({"job"});
    EXPECT_FAILURE(AffectedJobElement);
    EXPECT_FAILURE(RecordAppliesToElement);
    EXPECT_FAILURE(UseOfLog);
    FakeCimServer::Reset();
    EXPECT_FAILURE(OwningJobElement);
}

// What a former enumeration found is of no use to one whose up-call fails.
TEST_F(EndpointLists, FailedUpCallAfterAGoodOne_LeavesTheListEmpty) {
    QUVSG_BMCI2C_AffectedJobElement_Provider provider;
    EXPECT_EQ(Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider).instances.size(), 1U);
    FakeCimServer::Reset();
    const Enumeration result = Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider);
    EXPECT_EQ(result.status, 70);
    EXPECT_THAT(result.instances, IsEmpty());
}

TEST_F(EndpointLists, MachineThatIsNoLongerSupported_LeavesTheListEmpty) {
    QUVSG_BMCI2C_AvailableDiagnosticService_Provider provider;
    EXPECT_EQ(Enumerate<QUVSG_BMCI2C_AvailableDiagnosticService>(provider).status, 0);
    FakeDiagnostics::machineType = "9999";
    EXPECT_EQ(Enumerate<QUVSG_BMCI2C_AvailableDiagnosticService>(provider).status, 70);
}

TEST_F(EndpointLists, EndpointOfAnotherClass_GivesANullReference) {
    FakeCimServer::Script("QUVSG_BMCI2C_ConcreteJob", [] {
        return std::vector<cimple::Instance*>{cimple::create<QUVSG_BMCI2C_HelpService>()};
    });
    QUVSG_BMCI2C_AffectedJobElement_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(Pairs(result), ElementsAre("AffectedElement=element AffectingElement=null"));
}

// The help service is a managed element, but not the element that was asked for.
TEST_F(EndpointLists, EndpointOfAnotherClassThatTheRoleWouldTake_GivesANullReference) {
    FakeCimServer::Script("QUVSG_BMCI2C_ManagedSystemElement", [] {
        return std::vector<cimple::Instance*>{cimple::create<QUVSG_BMCI2C_HelpService>()};
    });
    QUVSG_BMCI2C_AffectedJobElement_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(Pairs(result), ElementsAre("AffectedElement=null AffectingElement=job"));
    EXPECT_THAT(FakeTraceSink::lines, Not(Contains("QUVSG_BMCI2C_HelpService \n")));
}

TEST_F(EndpointLists, EndpointOfAnotherClassAmongOthers_KeepsItsPlace) {
    FakeCimServer::Script("QUVSG_BMCI2C_ConcreteJob", [] {
        return std::vector<cimple::Instance*>{cimple::create<QUVSG_BMCI2C_HelpService>(),
                                              cimple::create<QUVSG_BMCI2C_ConcreteJob>()};
    });
    QUVSG_BMCI2C_AffectedJobElement_Provider provider;
    EXPECT_THAT(Pairs(Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider)),
                ElementsAre("AffectedElement=element AffectingElement=null",
                            "AffectedElement=element AffectingElement="));
}

TEST_F(EndpointLists, EndpointOfASubclass_IsTaken) {
    static cimple::Meta_Class nightJob = QUVSG_BMCI2C_ConcreteJob::static_meta_class;
    nightJob.name = "ACME_NightJob";
    nightJob.super_class = &QUVSG_BMCI2C_ConcreteJob::static_meta_class;
    FakeCimServer::Script("QUVSG_BMCI2C_ConcreteJob", [] {
        return std::vector<cimple::Instance*>{cimple::create(&nightJob, false)};
    });
    QUVSG_BMCI2C_AffectedJobElement_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider);
    ASSERT_EQ(result.instances.size(), 1U);
    const auto* association =
        static_cast<QUVSG_BMCI2C_AffectedJobElement*>(result.instances[0].get());
    EXPECT_EQ(association->AffectingElement->meta_class, &nightJob);
}

TEST_F(EndpointLists, EmptyAnswerInTheMiddle_EndsTheList) {
    FakeCimServer::Script("QUVSG_BMCI2C_ConcreteJob", [] {
        return std::vector<cimple::Instance*>{cimple::create<QUVSG_BMCI2C_ConcreteJob>(), nullptr,
                                              cimple::create<QUVSG_BMCI2C_ConcreteJob>()};
    });
    QUVSG_BMCI2C_AffectedJobElement_Provider provider;
    EXPECT_EQ(Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider).instances.size(), 1U);
}

TEST_F(EndpointLists, OneEndpoint_IsReferencedByEveryAssociationOfItsRow) {
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

TEST_F(EndpointLists, LocallyBuiltEndpoints_HaveNoNameSpaceOfTheirOwn) {
    QUVSG_BMCI2C_AvailableDiagnosticService_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_AvailableDiagnosticService>(provider);
    const auto* association =
        static_cast<QUVSG_BMCI2C_AvailableDiagnosticService*>(result.instances.at(0).get());
    EXPECT_STREQ(association->ServiceProvided->name_space.c_str(), "");
    EXPECT_STREQ(association->UserOfService->name_space.c_str(), "");
}

TEST_F(EndpointLists, RefilledLists_ParkTwoEndpointsPerEnumeration) {
    EXPECT_EQ(GROWTH(AffectedJobElement), Parked(20, 20));
    EXPECT_EQ(GROWTH(OwningJobElement), Parked(20, 20));
    EXPECT_EQ(GROWTH(RecordAppliesToElement), Parked(20, 20));
    EXPECT_EQ(GROWTH(UseOfLog), Parked(20, 20));
    EXPECT_EQ(GROWTH(AvailableDiagnosticService), Parked(20, 20));
}

TEST_F(EndpointLists, ElementSetting_ParksItsServicesAndKeepsItsSettings) {
    EXPECT_EQ(GROWTH(ElementSetting), Parked(10, 20));
}

TEST_F(EndpointLists, NullEntries_AreNotParked) {
    FakeCimServer::Script("QUVSG_BMCI2C_ConcreteJob", [] {
        return std::vector<cimple::Instance*>{cimple::create<QUVSG_BMCI2C_HelpService>()};
    });
    EXPECT_EQ(GROWTH(AffectedJobElement), Parked(10, 10));
}

TEST_F(EndpointLists, DestroyedProvider_LeavesItsEndpointsAllocated) {
    const std::size_t before = ParkedInstanceCount();
    {
        QUVSG_BMCI2C_AffectedJobElement_Provider provider;
        Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider);
    }
    EXPECT_EQ(ParkedInstanceCount() - before, 2U);
}

TEST_F(EndpointLists, DeliveredAssociation_OutlivesItsProvider) {
    Enumeration result;
    {
        QUVSG_BMCI2C_AffectedJobElement_Provider provider;
        result = Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider);
    }
    EXPECT_THAT(Pairs(result), ElementsAre("AffectedElement=element AffectingElement=job"));
}

TEST_F(EndpointLists, ElementCapabilities_FillsItsListsButDeliversNothing) {
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
