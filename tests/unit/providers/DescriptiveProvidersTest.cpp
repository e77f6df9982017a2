// The classes with one fixed instance: every value that a client sees, and nothing else assigned.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <providers/QUVSG_BMCI2C_DiagnosticServiceCapabilities_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticSetting_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticsLog_Provider.h>
#include <providers/QUVSG_BMCI2C_HelpService_Provider.h>
#include <providers/QUVSG_BMCI2C_ManagedSystemElement_Provider.h>
#include <providers/QUVSG_BMCI2C_SoftwareIdentity_Provider.h>

#include "Enumeration.h"

using testing::ElementsAre;

TEST(ManagedSystemElement, Enumeration_YieldsTheI2cBus) {
    QUVSG_BMCI2C_ManagedSystemElement_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_ManagedSystemElement>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(
        result.TheOne(),
        ElementsAre(
            "Caption = \"I2C Bus\"", "Description = \"I2C Bus\"", "ElementName = \"I2C Bus\"",
            "Name = \"BMCI2C Test\"", "OperationalStatus = {0}",
            "StatusDescriptions = {\"Unknown status\"}", "Status = \"Unknown\"", "EnabledState = 2",
            "OtherEnabledState = \"\"", "RequestedState = 2", "EnabledDefault = 2",
            "TimeOfLastStateChange = 00000000000000.000000:000",
            "SystemCreationClassName = \"QUVSG_ComputerSystem\"", "SystemName = \"Vardis\"",
            "CreationClassName = \"CIM_LogicalDevice\"", "DeviceID = \"I2C Bus\"",
            "PowerManagementSupported = true", "PowerManagementCapabilities = {0}",
            "Availability = 2", "StatusInfo = 3", "LastErrorCode = 0",
            "ErrorDescription = \"No error description\"", "ErrorCleared = false",
            "OtherIdentifyingInfo = {\"No other identifying info\"}", "PowerOnHours = 0",
            "TotalPowerOnHours = 0", "IdentifyingDescriptions = {\"No identifying descriptions\"}",
            "AdditionalAvailability = {2}", "MaxQuiesceTime = 0"));
}

TEST(SoftwareIdentity, Enumeration_YieldsVersion210) {
    QUVSG_BMCI2C_SoftwareIdentity_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_SoftwareIdentity>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(
        result.TheOne(),
        ElementsAre("Caption = \"QUVSG_BMCI2C_SoftwareIdentity\"",
                    "Description = \"QUVSG_BMCI2C_SoftwareIdentity\"",
                    "ElementName = \"QUVSG_BMCI2C_SoftwareIdentity\"",
                    "Name = \"QUVSG_CPUStressTest_SoftwareIdentity\"", "OperationalStatus = {2}",
                    "StatusDescriptions = {\"Status OK\"}", "Status = \"OK\"",
                    "InstanceID = \"QUV : QUVSG_BMCI2C_SoftwareIdentity\"", "MajorVersion = 2",
                    "MinorVersion = 10", "RevisionNumber = 1", "BuildNumber = 1",
                    "VersionString = \"2.10(1)T\"", "TargetOperatingSystems = {\"Linux SUSE 10\"}",
                    "Manufacturer = \"QUV\"", "Languages = {\"eng\"}", "Classifications = {4}",
                    "ClassificationDescriptions = {\"Application Software\"}",
                    "SerialNumber = \"No Serial Number\"",
                    "ReleaseDate = 00000000000000.000000:000"));
}

TEST(HelpService, Enumeration_LeavesKeysButNameUnassigned) {
    QUVSG_BMCI2C_HelpService_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_HelpService>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(
        result.TheOne(),
        ElementsAre(
            "Caption = \"QUVSG_BMCI2C_HelpService\"", "Description = \"QUVSG_BMCI2C_HelpService\"",
            "ElementName = \"QUVSG_BMCI2C_HelpService\"", "Name = \"QUVSG_BMCI2C_HelpService\"",
            "OperationalStatus = {2}", "StatusDescriptions = {\"Status OK\"}", "Status = \"OK\"",
            "EnabledState = 2", "OtherEnabledState = \"Enabled\"", "RequestedState = 2",
            "EnabledDefault = 2", "TimeOfLastStateChange = 00000000000000.000000:000",
            "StartMode = \"Automatic\"", "Started = true", "DeliveryOptions = {1}",
            "OtherDeliveryOptionDescription = \"No Other Delivery Option Description\"",
            "DocumentsAvailable = {\"No Document Available\"}",
            "DocumentDescriptions = {\"No Document Description\"}", "DocumentFormat = {0}",
            "OtherDocumentFormatDescription = \"No Other Document Format Description\""));
}

TEST(DiagnosticServiceCapabilities, Enumeration_GivesOnlyTheServiceModes) {
    QUVSG_BMCI2C_DiagnosticServiceCapabilities_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_DiagnosticServiceCapabilities>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.TheOne(),
                ElementsAre("Caption = \"QUVSG_BMCI2C_DiagnosticServiceCapabilities\"",
                            "Description = \"QUVSG_BMCI2C_DiagnosticServiceCapabilities\"",
                            "ElementName = \"QUVSG_BMCI2C_DiagnosticServiceCapabilities\"",
                            "InstanceID = \"QUVSG_BMCI2C_DiagnosticServiceCapabilities\"",
                            "SupportedServiceModes = {0}"));
}

TEST(DiagnosticSetting, Enumeration_LeavesHaltOnErrorAndLoopParameterUnassigned) {
    QUVSG_BMCI2C_DiagnosticSetting_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_DiagnosticSetting>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(
        result.TheOne(),
        ElementsAre("Caption = \"QUVSG_BMCI2C_DiagnosticSetting\"",
                    "Description = \"QUVSG_BMCI2C_DiagnosticSetting\"",
                    "ElementName = \"QUVSG_BMCI2C_DiagnosticSetting\"",
                    "InstanceID = \"QUVSG_BMCI2C_DiagnosticSetting\"", "TestWarningLevel = 0",
                    "ReportSoftErrors = true", "ReportStatusMessages = true", "QuickMode = false",
                    "PercentOfTestCoverage = 100", "LoopControl = {3}",
                    "OtherLoopControlDescription = \"No Other Loop Control Description\"",
                    "OtherLoopControlDescriptions = {\"No Other Loop Control Descriptions\"}",
                    "ResultPersistence = 0", "LogOptions = {12}",
                    "OtherLogOptionsDescriptions = {\"MPx Configuration\"}", "LogStorage = {2}",
                    "OtherLogStorageDescriptions = "
                    "{\"Use the DiagnosticRecordLog and DiagnosticRecord classes.\"}",
                    "VerbosityLevel = {3}", "Locales = {\"en_US_LINUX\"}"));
}

TEST(DiagnosticsLog, Enumeration_YieldsTheLogWithItsConstantCounts) {
    QUVSG_BMCI2C_DiagnosticsLog_Provider provider;
    const Enumeration result = Enumerate<QUVSG_BMCI2C_DiagnosticsLog>(provider);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(
        result.TheOne(),
        ElementsAre("Caption = \"DiagnosticLog\"", "Description = \"Diagnostics log\"",
                    "ElementName = \"Diagnostics log\"", "Name = \"Diagnostics log\"",
                    "OperationalStatus = {2}", "StatusDescriptions = {\"Status OK\"}",
                    "Status = \"OK\"", "EnabledState = 2", "OtherEnabledState = \"Enabled\"",
                    "RequestedState = 5", "EnabledDefault = 2",
                    "TimeOfLastStateChange = 00000000000000.000000:000", "MaxNumberOfRecords = 2",
                    "CurrentNumberOfRecords = 1",
                    "InstanceID = \"QUV : QUVSG_BMCI2C_DiagnosticsLog\""));
}
