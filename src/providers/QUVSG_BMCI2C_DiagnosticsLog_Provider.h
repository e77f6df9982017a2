// The log in which the diagnostic keeps its results.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <schema/QUVSG_BMCI2C_DiagnosticsLog.h>

class QUVSG_BMCI2C_DiagnosticsLog_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_DiagnosticsLog> {
public:
    int enum_instances(const QUVSG_BMCI2C_DiagnosticsLog* model,
                       cimple::Enum_Instances_Handler<QUVSG_BMCI2C_DiagnosticsLog>* handler);

    static constexpr cimple::Unsupported_Method RequestStateChange{};
    static constexpr cimple::Unsupported_Method ClearLog{};

    // A new instance, owned by the caller. Its record counts are constants, not counts of records.
    static QUVSG_BMCI2C_DiagnosticsLog* BuildDiagLog();
};
