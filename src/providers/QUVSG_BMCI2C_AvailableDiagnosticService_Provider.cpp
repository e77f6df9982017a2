#include <providers/CrossProduct.h>
#include <providers/QUVSG_BMCI2C_AvailableDiagnosticService_Provider.h>
#include <providers/QUVSG_BMCI2C_ManagedSystemElement_Provider.h>
#include <providers/Services.h>
#include <schema/CIM_DiagnosticService.h>
#include <schema/CIM_ManagedElement.h>
#include <test/BMCI2C_Test_Impl.h>

int QUVSG_BMCI2C_AvailableDiagnosticService_Provider::enum_instances(
    const QUVSG_BMCI2C_AvailableDiagnosticService* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_AvailableDiagnosticService>* handler) {
    const PairEnumeration enumeration("QUVSG_BMCI2C_AvailableDiagnosticService_Provider");
    GetDiagService();
    GetManElement();
    return enumeration.Deliver(
        handler, Role{services, &QUVSG_BMCI2C_AvailableDiagnosticService::ServiceProvided},
        Role{elements, &QUVSG_BMCI2C_AvailableDiagnosticService::UserOfService});
}

void QUVSG_BMCI2C_AvailableDiagnosticService_Provider::GetDiagService() {
    FillFromRegistry(services);
}

void QUVSG_BMCI2C_AvailableDiagnosticService_Provider::GetManElement() {
    elements.Clear();
    if (BMCI2C_Test_Impl().SupportedMachineType())
        elements.Add(QUVSG_BMCI2C_ManagedSystemElement_Provider::BuildElement());
}
