#include <providers/CrossProduct.h>
#include <providers/QUVSG_BMCI2C_RecordAppliesToElement_Provider.h>
#include <schema/CIM_ManagedElement.h>
#include <schema/CIM_RecordForLog.h>

int QUVSG_BMCI2C_RecordAppliesToElement_Provider::enum_instances(
    const QUVSG_BMCI2C_RecordAppliesToElement* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_RecordAppliesToElement>* handler) {
    const PairEnumeration enumeration("QUVSG_BMCI2C_RecordAppliesToElement_Provider");
    GetMgdElement();
    GetDiagServRecord();
    return enumeration.Deliver(handler,
                               Role{elements, &QUVSG_BMCI2C_RecordAppliesToElement::Element},
                               Role{records, &QUVSG_BMCI2C_RecordAppliesToElement::Record});
}

void QUVSG_BMCI2C_RecordAppliesToElement_Provider::GetMgdElement() { elements.LookUp(); }

void QUVSG_BMCI2C_RecordAppliesToElement_Provider::GetDiagServRecord() { records.LookUp(); }
