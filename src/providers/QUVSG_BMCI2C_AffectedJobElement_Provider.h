// Ties the tested element to the job that affects it.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <providers/EndpointList.h>
#include <schema/QUVSG_BMCI2C_AffectedJobElement.h>
#include <schema/QUVSG_BMCI2C_ConcreteJob.h>
#include <schema/QUVSG_BMCI2C_ManagedSystemElement.h>

class QUVSG_BMCI2C_AffectedJobElement_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_AffectedJobElement>,
      public cimple::Default_Association_Operations<QUVSG_BMCI2C_AffectedJobElement> {
public:
    int enum_instances(const QUVSG_BMCI2C_AffectedJobElement* model,
                       cimple::Enum_Instances_Handler<QUVSG_BMCI2C_AffectedJobElement>* handler);

    void GetMgdElement();
    void GetConcreteJob();

private:
    EndpointList<QUVSG_BMCI2C_ManagedSystemElement> elements;
    EndpointList<QUVSG_BMCI2C_ConcreteJob> jobs;
};
