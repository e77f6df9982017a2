#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <module/dispatch_procedures.h>
#include <module/module.h>
#include <schema/QUVSG_BMCI2C_HelpService.h>

#include <string>
#include <vector>

namespace {

std::vector<const cimple::Registration*> Chain() {
    std::vector<const cimple::Registration*> chain;
    for (const auto* r = cimple_module(); r != nullptr; r = r->next) chain.push_back(r);
    return chain;
}

}  // namespace

TEST(Registrations, Chain_RunsInReverseAlphabeticalOrder) {
    const std::vector<std::string> expected = {
        "QUVSG_BMCI2C_UseOfLog",
        "QUVSG_BMCI2C_SoftwareIdentity",
        "QUVSG_BMCI2C_ServiceAvailableToElement",
        "QUVSG_BMCI2C_RecordAppliesToElement",
        "QUVSG_BMCI2C_OwningJobElement",
        "QUVSG_BMCI2C_ManagedSystemElement",
        "QUVSG_BMCI2C_LogManagesRecord",
        "QUVSG_BMCI2C_JobSettingData",
        "QUVSG_BMCI2C_HelpService",
        "QUVSG_BMCI2C_ElementSoftwareIdentity",
        "QUVSG_BMCI2C_ElementSetting",
        "QUVSG_BMCI2C_ElementCapabilities",
        "QUVSG_BMCI2C_DiagnosticsLog",
        "QUVSG_BMCI2C_DiagnosticSettingRecord",
        "QUVSG_BMCI2C_DiagnosticSetting",
        "QUVSG_BMCI2C_DiagnosticServiceRecord",
        "QUVSG_BMCI2C_DiagnosticServiceCapabilities",
        "QUVSG_BMCI2C_DiagnosticService",
        "QUVSG_BMCI2C_DiagnosticCompletionRecord",
        "QUVSG_BMCI2C_CorrespondingSettingsRecord",
        "QUVSG_BMCI2C_ConcreteJob",
        "QUVSG_BMCI2C_AvailableDiagnosticService",
        "QUVSG_BMCI2C_AffectedJobElement",
    };
    std::vector<std::string> classes;
    for (const auto* registration : Chain()) classes.emplace_back(registration->meta_class->name);
    EXPECT_EQ(classes, expected);
}

TEST(Registrations, Each_CarriesModuleNameAndItsProviderName) {
    for (const auto* registration : Chain()) {
        EXPECT_STREQ(registration->module_name, "QUVSG_BMCI2C_DiagnosticService_Module");
        EXPECT_EQ(std::string(registration->provider_name),
                  std::string(registration->meta_class->name) + "_Provider");
    }
}

TEST(Registrations, Each_CarriesTheProcedureOfItsOwnClass) {
    for (const auto* registration : Chain()) {
        const cimple::Meta_Class* metaClass = nullptr;
        EXPECT_EQ(registration->proc(registration, 0, &metaClass, nullptr, nullptr, nullptr,
                                     nullptr, nullptr, nullptr, nullptr),
                  0);
        EXPECT_EQ(metaClass, registration->meta_class);
    }
}

TEST(Registrations, Head_IsTheSameAtEveryCall) { EXPECT_EQ(cimple_module(), cimple_module()); }
