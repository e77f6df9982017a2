// Ties the diagnostic service to its setting.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <providers/EndpointList.h>
#include <schema/QUVSG_BMCI2C_DiagnosticService.h>
#include <schema/QUVSG_BMCI2C_DiagnosticSetting.h>
#include <schema/QUVSG_BMCI2C_ElementSetting.h>

class QUVSG_BMCI2C_ElementSetting_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_ElementSetting>,
      public cimple::Default_Association_Operations<QUVSG_BMCI2C_ElementSetting> {
public:
    int enum_instances(const QUVSG_BMCI2C_ElementSetting* model,
                       cimple::Enum_Instances_Handler<QUVSG_BMCI2C_ElementSetting>* handler);

    void GetDiagService();
    void GetDiagSetting();  // adds one setting at each enumeration

private:
    EndpointList<QUVSG_BMCI2C_DiagnosticService> services;
    EndpointList<QUVSG_BMCI2C_DiagnosticSetting> settings;
};
