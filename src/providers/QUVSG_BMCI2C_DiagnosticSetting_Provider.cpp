#include <providers/OneInstance.h>
#include <providers/QUVSG_BMCI2C_DiagnosticSetting_Provider.h>

int QUVSG_BMCI2C_DiagnosticSetting_Provider::enum_instances(
    const QUVSG_BMCI2C_DiagnosticSetting* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_DiagnosticSetting>* handler) {
    return EnumerateOne({"QUVSG_BMCI2C_DiagnosticSetting_Provider", ""}, handler, BuildDiagSetting);
}

QUVSG_BMCI2C_DiagnosticSetting* QUVSG_BMCI2C_DiagnosticSetting_Provider::BuildDiagSetting() {
    auto* setting = cimple::create<QUVSG_BMCI2C_DiagnosticSetting>();
    setting->Caption = "QUVSG_BMCI2C_DiagnosticSetting";
    setting->Description = "QUVSG_BMCI2C_DiagnosticSetting";
    setting->ElementName = "QUVSG_BMCI2C_DiagnosticSetting";
    setting->InstanceID = "QUVSG_BMCI2C_DiagnosticSetting";
    setting->TestWarningLevel = 0;
    setting->ReportSoftErrors = true;
    setting->ReportStatusMessages = true;
    setting->QuickMode = false;
    setting->PercentOfTestCoverage = 100;
    setting->LoopControl = {setting->LoopControl_Count};
    setting->OtherLoopControlDescription = "No Other Loop Control Description";
    setting->OtherLoopControlDescriptions = {"No Other Loop Control Descriptions"};
    setting->ResultPersistence = 0;
    setting->LogOptions = {12};
    setting->OtherLogOptionsDescriptions = {"MPx Configuration"};
    setting->LogStorage = {2};
    setting->OtherLogStorageDescriptions = {
        "Use the DiagnosticRecordLog and DiagnosticRecord classes."};
    setting->VerbosityLevel = {3};
    setting->Locales = {"en_US_LINUX"};
    return setting;
}
