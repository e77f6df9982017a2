#include <providers/CrossProduct.h>
#include <providers/QUVSG_BMCI2C_UseOfLog_Provider.h>
#include <schema/CIM_Log.h>
#include <schema/CIM_ManagedSystemElement.h>

int QUVSG_BMCI2C_UseOfLog_Provider::enum_instances(
    const QUVSG_BMCI2C_UseOfLog* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_UseOfLog>* handler) {
    const PairEnumeration enumeration("QUVSG_BMCI2C_UseOfLog_Provider");
    GetDiagService();
    GetDiagLog();
    return enumeration.Deliver(handler, Role{services, &QUVSG_BMCI2C_UseOfLog::Dependent},
                               Role{logs, &QUVSG_BMCI2C_UseOfLog::Antecedent});
}

void QUVSG_BMCI2C_UseOfLog_Provider::GetDiagService() { services.LookUp(); }

void QUVSG_BMCI2C_UseOfLog_Provider::GetDiagLog() { logs.LookUp(); }
