// Ties the tested element to the service record.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <providers/EndpointList.h>
#include <schema/QUVSG_BMCI2C_DiagnosticServiceRecord.h>
#include <schema/QUVSG_BMCI2C_ManagedSystemElement.h>
#include <schema/QUVSG_BMCI2C_RecordAppliesToElement.h>

class QUVSG_BMCI2C_RecordAppliesToElement_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_RecordAppliesToElement>,
      public cimple::Default_Association_Operations<QUVSG_BMCI2C_RecordAppliesToElement> {
public:
    int enum_instances(
        const QUVSG_BMCI2C_RecordAppliesToElement* model,
        cimple::Enum_Instances_Handler<QUVSG_BMCI2C_RecordAppliesToElement>* handler);

    void GetMgdElement();
    void GetDiagServRecord();

private:
    EndpointList<QUVSG_BMCI2C_ManagedSystemElement> elements;
    EndpointList<QUVSG_BMCI2C_DiagnosticServiceRecord> records;
};
