#include <providers/CrossProduct.h>
#include <providers/QUVSG_BMCI2C_DiagnosticSetting_Provider.h>
#include <providers/QUVSG_BMCI2C_ElementSetting_Provider.h>
#include <providers/Services.h>
#include <schema/CIM_ManagedSystemElement.h>
#include <schema/CIM_Setting.h>

int QUVSG_BMCI2C_ElementSetting_Provider::enum_instances(
    const QUVSG_BMCI2C_ElementSetting* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_ElementSetting>* handler) {
    const PairEnumeration enumeration("QUVSG_BMCI2C_ElementSettingData_Provider");
    GetDiagService();
    GetDiagSetting();
    return enumeration.Deliver(handler, Role{services, &QUVSG_BMCI2C_ElementSetting::Element},
                               Role{settings, &QUVSG_BMCI2C_ElementSetting::Setting});
}

void QUVSG_BMCI2C_ElementSetting_Provider::GetDiagService() { FillFromRegistry(services); }

void QUVSG_BMCI2C_ElementSetting_Provider::GetDiagSetting() {
    settings.Add(QUVSG_BMCI2C_DiagnosticSetting_Provider::BuildDiagSetting());
}
