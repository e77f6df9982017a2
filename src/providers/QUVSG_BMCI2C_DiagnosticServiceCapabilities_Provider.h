// What the diagnostic service can do.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <schema/QUVSG_BMCI2C_DiagnosticServiceCapabilities.h>

class QUVSG_BMCI2C_DiagnosticServiceCapabilities_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_DiagnosticServiceCapabilities> {
public:
    int enum_instances(
        const QUVSG_BMCI2C_DiagnosticServiceCapabilities* model,
        cimple::Enum_Instances_Handler<QUVSG_BMCI2C_DiagnosticServiceCapabilities>* handler);

    // A new instance, owned by the caller. Of the capabilities only the service modes are given.
    static QUVSG_BMCI2C_DiagnosticServiceCapabilities* BuildDiagServiceCapabilities();
};
