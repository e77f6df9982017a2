#include <providers/CrossProduct.h>
#include <providers/QUVSG_BMCI2C_AffectedJobElement_Provider.h>
#include <schema/CIM_Job.h>
#include <schema/CIM_ManagedElement.h>

int QUVSG_BMCI2C_AffectedJobElement_Provider::enum_instances(
    const QUVSG_BMCI2C_AffectedJobElement* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_AffectedJobElement>* handler) {
    const PairEnumeration enumeration("QUVSG_BMCI2C_AffectedJobElement_Provider");
    GetMgdElement();
    GetConcreteJob();
    return enumeration.Deliver(handler,
                               Role{elements, &QUVSG_BMCI2C_AffectedJobElement::AffectedElement},
                               Role{jobs, &QUVSG_BMCI2C_AffectedJobElement::AffectingElement});
}

void QUVSG_BMCI2C_AffectedJobElement_Provider::GetMgdElement() { elements.LookUp(); }

void QUVSG_BMCI2C_AffectedJobElement_Provider::GetConcreteJob() { jobs.LookUp(); }
