#include <framework/Status.h>
#include <providers/QUVSG_BMCI2C_ManagedSystemElement_Provider.h>

int QUVSG_BMCI2C_ManagedSystemElement_Provider::enum_instances(
    const QUVSG_BMCI2C_ManagedSystemElement* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_ManagedSystemElement>* handler) {
    handler->handle(BuildElement());
    return cimple::STATUS_OK;
}

QUVSG_BMCI2C_ManagedSystemElement* QUVSG_BMCI2C_ManagedSystemElement_Provider::BuildElement() {
    auto* element = cimple::create<QUVSG_BMCI2C_ManagedSystemElement>();
    element->Caption = "I2C Bus";
    element->Description = "I2C Bus";
    element->ElementName = "I2C Bus";
    element->Name = "BMCI2C Test";
    element->OperationalStatus = {element->OperationalStatus_Unknown};
    element->StatusDescriptions = {"Unknown status"};
    element->Status = "Unknown";
    element->EnabledState = element->EnabledState_Enabled;
    element->OtherEnabledState = "";
    element->RequestedState = element->RequestedState_Enabled;
    element->EnabledDefault = element->EnabledDefault_Enabled;
    element->TimeOfLastStateChange = cimple::Datetime(0);
    element->SystemCreationClassName = "QUVSG_ComputerSystem";
    element->SystemName = "Vardis";
    element->CreationClassName = "CIM_LogicalDevice";
    element->DeviceID = "I2C Bus";
    element->PowerManagementSupported = true;
    element->PowerManagementCapabilities = {element->PowerManagementCapabilities_Unknown};
    element->Availability = element->Availability_Unknown;
    element->StatusInfo = element->StatusInfo_Enabled;
    element->LastErrorCode = 0;
    element->ErrorDescription = "No error description";
    element->ErrorCleared = false;
    element->OtherIdentifyingInfo = {"No other identifying info"};
    element->PowerOnHours = 0;
    element->TotalPowerOnHours = 0;
    element->IdentifyingDescriptions = {"No identifying descriptions"};
    element->AdditionalAvailability = {element->AdditionalAvailability_Unknown};
    element->MaxQuiesceTime = 0;
    return element;
}
