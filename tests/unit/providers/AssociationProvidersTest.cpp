// The computed associations: which pairs they deliver, and in which order.
#include "AssociationFixture.h"
#include "RegisteredTests.h"

using testing::ElementsAre;
using testing::IsEmpty;
using AssociationProviders = AssociationTest;

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

TEST_F(AssociationProviders, AffectedJobElement_DeliversElementsOutermost) {
    Serve<QUVSG_BMCI2C_ManagedSystemElement>({"element 1", "element 2"});
    Serve<QUVSG_BMCI2C_ConcreteJob>({"job 1", "job 2"});
    QUVSG_BMCI2C_AffectedJobElement_Provider provider;
    EXPECT_THAT(Pairs(Enumerate<QUVSG_BMCI2C_AffectedJobElement>(provider)),
                ElementsAre("AffectedElement=element 1 AffectingElement=job 1",
                            "AffectedElement=element 1 AffectingElement=job 2",
                            "AffectedElement=element 2 AffectingElement=job 1",
                            "AffectedElement=element 2 AffectingElement=job 2"));
}

TEST_F(AssociationProviders, OwningJobElement_DeliversServicesOutermost) {
    Serve<QUVSG_BMCI2C_DiagnosticService>({"service 1", "service 2"});
    Serve<QUVSG_BMCI2C_ConcreteJob>({"job 1", "job 2"});
    QUVSG_BMCI2C_OwningJobElement_Provider provider;
    EXPECT_THAT(Pairs(Enumerate<QUVSG_BMCI2C_OwningJobElement>(provider)),
                ElementsAre("OwningElement=service 1 OwnedElement=job 1",
                            "OwningElement=service 1 OwnedElement=job 2",
                            "OwningElement=service 2 OwnedElement=job 1",
                            "OwningElement=service 2 OwnedElement=job 2"));
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

TEST_F(AssociationProviders, ElementSettingOfTwoTests_GrowsByOnePerServiceInTheirOrder) {
    OtherTest first("first");
    OtherTest second("second");
    const RegisteredTests tests({&first, &second});
    QUVSG_BMCI2C_ElementSetting_Provider provider;
    Enumerate<QUVSG_BMCI2C_ElementSetting>(provider);
    const std::string setting = " Setting=QUVSG_BMCI2C_DiagnosticSetting";
    EXPECT_THAT(
        Pairs(Enumerate<QUVSG_BMCI2C_ElementSetting>(provider)),
        ElementsAre("Element=caption of first" + setting, "Element=caption of first" + setting,
                    "Element=caption of second" + setting, "Element=caption of second" + setting));
}

TEST_F(AssociationProviders, AvailableDiagnosticServiceOfTwoTests_TiesEachInTheirOrder) {
    OtherTest first("first");
    OtherTest second("second");
    const RegisteredTests tests({&first, &second});
    QUVSG_BMCI2C_AvailableDiagnosticService_Provider provider;
    EXPECT_THAT(Pairs(Enumerate<QUVSG_BMCI2C_AvailableDiagnosticService>(provider)),
                ElementsAre("ServiceProvided=caption of first UserOfService=I2C Bus",
                            "ServiceProvided=caption of second UserOfService=I2C Bus"));
}

TEST_F(AssociationProviders, ServicesOfTheRegistry_AreBuiltFromWhatTheirTestSays) {
    OtherTest test("other");
    const RegisteredTests tests({&test});
    QUVSG_BMCI2C_ElementSetting_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_ElementSetting>(provider);
    const auto* association =
        static_cast<QUVSG_BMCI2C_ElementSetting*>(result.instances.at(0).get());
    const std::vector<std::string> service = AssignedFeatures(*association->Element);
    EXPECT_THAT(service, testing::IsSupersetOf({"Caption = \"caption of other\"",
                                                "Description = \"description of other\"",
                                                "ElementName = \"other\"", "Name = \"other\""}));
}

TEST_F(AssociationProviders, NoRegisteredTest_FailsThoseWithServicesOfTheRegistry) {
    const RegisteredTests none({});
    QUVSG_BMCI2C_ElementSetting_Provider setting;
    const Enumeration settings = Enumerate<QUVSG_BMCI2C_ElementSetting>(setting);
    EXPECT_EQ(settings.status, 70);
    EXPECT_THAT(settings.instances, IsEmpty());
    EXPECT_EQ(Trace(), TraceOf("QUVSG_BMCI2C_ElementSettingData_Provider", "FAIL"));
    FakeTraceSink::lines.clear();
    QUVSG_BMCI2C_AvailableDiagnosticService_Provider available;
    EXPECT_EQ(Enumerate<QUVSG_BMCI2C_AvailableDiagnosticService>(available).status, 70);
    EXPECT_EQ(Trace(), TraceOf("QUVSG_BMCI2C_AvailableDiagnosticService_Provider", "FAIL"));
}
