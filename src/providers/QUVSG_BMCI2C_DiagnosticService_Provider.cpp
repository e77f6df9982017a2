#include <debug/Debug.h>
#include <framework/Status.h>
#include <providers/QUVSG_BMCI2C_ConcreteJob_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticService_Provider.h>
#include <test/Globals_BMCI2C_Test.h>

int QUVSG_BMCI2C_DiagnosticService_Provider::enum_instances(
    const QUVSG_BMCI2C_DiagnosticService* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_DiagnosticService>* handler) {
    for (DiagService* test : Globals_BMCI2C_Test::Instance()->tests) {
        const cimple::String elementName = test->GetElementName();
        const cimple::String description = test->GetDescription();
        const cimple::String caption = test->GetCaption();
        handler->handle(BuildService(caption, description, elementName));
    }
    return cimple::STATUS_OK;
}

int QUVSG_BMCI2C_DiagnosticService_Provider::RunDiagnostic(
    const QUVSG_BMCI2C_DiagnosticService* self, const CIM_ManagedElement* /*ManagedElement*/,
    const CIM_DiagnosticSetting* /*DiagSetting*/, const CIM_JobSettingData* /*JobSetting*/,
    CIM_ConcreteJob*& Job, cimple::Property<std::uint32_t>& return_value) {
    Globals_BMCI2C_Test* globals = Globals_BMCI2C_Test::Instance();
    for (DiagService* test : globals->tests) {
        if (!self->Name.value.equal(test->GetElementName())) continue;
        return_value = static_cast<std::uint32_t>(test->RunDiagnostic("I2C Bus"));
        globals->GenerateInstanceID();
        Job = QUVSG_BMCI2C_ConcreteJob_Provider::BuildConcreteJob();
        return_value = 1;
        LogMessage("---QUVSG_BMCI2C_DiagnosticService_Provider::RunDiagnostic OK\n");
        return cimple::STATUS_OK;
    }
    LogMessage("---QUVSG_BMCI2C_DiagnosticService_Provider::RunDiagnostic\n");
    return cimple::INVOKE_METHOD_FAILED;
}

QUVSG_BMCI2C_DiagnosticService* QUVSG_BMCI2C_DiagnosticService_Provider::BuildService(
    cimple::String caption, cimple::String description, cimple::String elementName) {
    const Globals_BMCI2C_Test* globals = Globals_BMCI2C_Test::Instance();
    auto* service = cimple::create<QUVSG_BMCI2C_DiagnosticService>();
    service->Caption = caption;
    service->Description = description;
    service->ElementName = elementName;
    service->InstallDate = globals->installDate;
    service->Name = elementName;
    service->OperationalStatus = {service->OperationalStatus_OK};
    service->StatusDescriptions = {"Status OK"};
    service->Status = "OK";
    service->EnabledState = service->EnabledState_Enabled;
    service->OtherEnabledState = "Enabled";
    service->RequestedState = service->RequestedState_NoChange;
    service->EnabledDefault = service->EnabledDefault_Enabled;
    service->TimeOfLastStateChange = cimple::Datetime(0);
    service->SystemName = globals->systemName;
    service->StartMode = "Automatic";
    service->Started = true;
    return service;
}
