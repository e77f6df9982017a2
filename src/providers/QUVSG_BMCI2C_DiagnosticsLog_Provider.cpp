#include <providers/OneInstance.h>
#include <providers/QUVSG_BMCI2C_DiagnosticsLog_Provider.h>

int QUVSG_BMCI2C_DiagnosticsLog_Provider::enum_instances(
    const QUVSG_BMCI2C_DiagnosticsLog* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_DiagnosticsLog>* handler) {
    return EnumerateOne({"QUVSG_BMCI2C_DiagnosticsLog_Provider", "", true}, handler, BuildDiagLog);
}

QUVSG_BMCI2C_DiagnosticsLog* QUVSG_BMCI2C_DiagnosticsLog_Provider::BuildDiagLog() {
    auto* log = cimple::create<QUVSG_BMCI2C_DiagnosticsLog>();
    log->Caption = "DiagnosticLog";
    log->Description = "Diagnostics log";
    log->ElementName = "Diagnostics log";
    log->Name = "Diagnostics log";
    log->OperationalStatus = {log->OperationalStatus_OK};
    log->StatusDescriptions = {"Status OK"};
    log->Status = "OK";
    log->EnabledState = log->EnabledState_Enabled;
    log->OtherEnabledState = "Enabled";
    log->RequestedState = log->RequestedState_NoChange;
    log->EnabledDefault = log->EnabledDefault_Enabled;
    log->TimeOfLastStateChange = cimple::Datetime(0);
    log->MaxNumberOfRecords = 2;
    log->CurrentNumberOfRecords = 1;
    log->InstanceID = "QUV : QUVSG_BMCI2C_DiagnosticsLog";
    return log;
}
