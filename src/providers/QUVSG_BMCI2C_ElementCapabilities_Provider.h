// Ties the diagnostic service to its capabilities. Has no instances: the lists can be filled, but
// no pair is made of them.
#pragma once

#include <framework/Default_Operations.h>
#include <providers/EndpointList.h>
#include <schema/QUVSG_BMCI2C_DiagnosticService.h>
#include <schema/QUVSG_BMCI2C_DiagnosticServiceCapabilities.h>
#include <schema/QUVSG_BMCI2C_ElementCapabilities.h>

class QUVSG_BMCI2C_ElementCapabilities_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_ElementCapabilities>,
      public cimple::Default_Association_Operations<QUVSG_BMCI2C_ElementCapabilities>,
      public cimple::Empty_Enumeration<QUVSG_BMCI2C_ElementCapabilities> {
public:
    void GetDiagService() { services.LookUp(); }
    void GetDiagServCapa() { capabilities.LookUp(); }

private:
    EndpointList<QUVSG_BMCI2C_DiagnosticService> services;
    EndpointList<QUVSG_BMCI2C_DiagnosticServiceCapabilities> capabilities;
};
