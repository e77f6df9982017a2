// Ties the diagnostic service to the job that it owns.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <providers/EndpointList.h>
#include <schema/QUVSG_BMCI2C_ConcreteJob.h>
#include <schema/QUVSG_BMCI2C_DiagnosticService.h>
#include <schema/QUVSG_BMCI2C_OwningJobElement.h>

class QUVSG_BMCI2C_OwningJobElement_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_OwningJobElement>,
      public cimple::Default_Association_Operations<QUVSG_BMCI2C_OwningJobElement> {
public:
    int enum_instances(const QUVSG_BMCI2C_OwningJobElement* model,
                       cimple::Enum_Instances_Handler<QUVSG_BMCI2C_OwningJobElement>* handler);

    void GetDiagService();
    void GetConcreteJob();

private:
    EndpointList<QUVSG_BMCI2C_DiagnosticService> services;
    EndpointList<QUVSG_BMCI2C_ConcreteJob> jobs;
};
