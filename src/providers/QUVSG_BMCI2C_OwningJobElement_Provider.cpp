#include <providers/CrossProduct.h>
#include <providers/QUVSG_BMCI2C_OwningJobElement_Provider.h>
#include <schema/CIM_Job.h>
#include <schema/CIM_ManagedElement.h>

int QUVSG_BMCI2C_OwningJobElement_Provider::enum_instances(
    const QUVSG_BMCI2C_OwningJobElement* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_OwningJobElement>* handler) {
    const PairEnumeration enumeration("QUVSG_BMCI2C_OwningJobElement_Provider");
    GetDiagService();
    GetConcreteJob();
    return enumeration.Deliver(handler,
                               Role{services, &QUVSG_BMCI2C_OwningJobElement::OwningElement},
                               Role{jobs, &QUVSG_BMCI2C_OwningJobElement::OwnedElement});
}

void QUVSG_BMCI2C_OwningJobElement_Provider::GetDiagService() { services.LookUp(); }

void QUVSG_BMCI2C_OwningJobElement_Provider::GetConcreteJob() { jobs.LookUp(); }
