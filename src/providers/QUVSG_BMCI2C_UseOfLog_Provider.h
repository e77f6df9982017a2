// Ties the diagnostic service to the log that it uses.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <providers/EndpointList.h>
#include <schema/QUVSG_BMCI2C_DiagnosticService.h>
#include <schema/QUVSG_BMCI2C_DiagnosticsLog.h>
#include <schema/QUVSG_BMCI2C_UseOfLog.h>

class QUVSG_BMCI2C_UseOfLog_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_UseOfLog>,
      public cimple::Default_Association_Operations<QUVSG_BMCI2C_UseOfLog> {
public:
    int enum_instances(const QUVSG_BMCI2C_UseOfLog* model,
                       cimple::Enum_Instances_Handler<QUVSG_BMCI2C_UseOfLog>* handler);

    void GetDiagService();
    void GetDiagLog();

private:
    EndpointList<QUVSG_BMCI2C_DiagnosticService> services;
    EndpointList<QUVSG_BMCI2C_DiagnosticsLog> logs;
};
