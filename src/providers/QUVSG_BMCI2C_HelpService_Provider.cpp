#include <providers/OneInstance.h>
#include <providers/QUVSG_BMCI2C_HelpService_Provider.h>

int QUVSG_BMCI2C_HelpService_Provider::enum_instances(
    const QUVSG_BMCI2C_HelpService* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_HelpService>* handler) {
    return EnumerateOne({"QUVSG_BMCI2C_HelpService_Provider", " OK"}, handler, BuildHelpService);
}

QUVSG_BMCI2C_HelpService* QUVSG_BMCI2C_HelpService_Provider::BuildHelpService() {
    auto* service = cimple::create<QUVSG_BMCI2C_HelpService>();
    service->Caption = "QUVSG_BMCI2C_HelpService";
    service->Description = "QUVSG_BMCI2C_HelpService";
    service->ElementName = "QUVSG_BMCI2C_HelpService";
    service->Name = "QUVSG_BMCI2C_HelpService";
    service->OperationalStatus = {service->OperationalStatus_OK};
    service->StatusDescriptions = {"Status OK"};
    service->Status = "OK";
    service->EnabledState = service->EnabledState_Enabled;
    service->OtherEnabledState = "Enabled";
    service->RequestedState = service->RequestedState_Enabled;
    service->EnabledDefault = service->EnabledDefault_Enabled;
    service->TimeOfLastStateChange = cimple::Datetime(0);
    service->StartMode = "Automatic";
    service->Started = true;
    service->DeliveryOptions = {1};
    service->OtherDeliveryOptionDescription = "No Other Delivery Option Description";
    service->DocumentsAvailable = {"No Document Available"};
    service->DocumentDescriptions = {"No Document Description"};
    service->DocumentFormat = {0};
    service->OtherDocumentFormatDescription = "No Other Document Format Description";
    return service;
}
