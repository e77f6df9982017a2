#include <providers/OneInstance.h>
#include <providers/QUVSG_BMCI2C_DiagnosticServiceCapabilities_Provider.h>

int QUVSG_BMCI2C_DiagnosticServiceCapabilities_Provider::enum_instances(
    const QUVSG_BMCI2C_DiagnosticServiceCapabilities* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_DiagnosticServiceCapabilities>* handler) {
    return EnumerateOne({"QUVSG_BMCI2C_DiagnosticServiceCapabilities_Provider", ""}, handler,
                        BuildDiagServiceCapabilities);
}

QUVSG_BMCI2C_DiagnosticServiceCapabilities*
QUVSG_BMCI2C_DiagnosticServiceCapabilities_Provider::BuildDiagServiceCapabilities() {
    auto* capabilities = cimple::create<QUVSG_BMCI2C_DiagnosticServiceCapabilities>();
    capabilities->Caption = "QUVSG_BMCI2C_DiagnosticServiceCapabilities";
    capabilities->Description = "QUVSG_BMCI2C_DiagnosticServiceCapabilities";
    capabilities->ElementName = "QUVSG_BMCI2C_DiagnosticServiceCapabilities";
    capabilities->InstanceID = "QUVSG_BMCI2C_DiagnosticServiceCapabilities";
    capabilities->SupportedServiceModes = {0};
    return capabilities;
}
