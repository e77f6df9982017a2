// Ties the diagnostic service to the element that it can test: on supported machines only.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <providers/EndpointList.h>
#include <schema/QUVSG_BMCI2C_AvailableDiagnosticService.h>
#include <schema/QUVSG_BMCI2C_DiagnosticService.h>
#include <schema/QUVSG_BMCI2C_ManagedSystemElement.h>

class QUVSG_BMCI2C_AvailableDiagnosticService_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_AvailableDiagnosticService>,
      public cimple::Default_Association_Operations<QUVSG_BMCI2C_AvailableDiagnosticService> {
public:
    int enum_instances(
        const QUVSG_BMCI2C_AvailableDiagnosticService* model,
        cimple::Enum_Instances_Handler<QUVSG_BMCI2C_AvailableDiagnosticService>* handler);

    void GetDiagService();
    void GetManElement();  // empty unless the machine is supported

private:
    EndpointList<QUVSG_BMCI2C_DiagnosticService> services;
    EndpointList<QUVSG_BMCI2C_ManagedSystemElement> elements;
};
