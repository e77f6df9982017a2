// The service record: one instance with the text of the last kept record.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <providers/TimeStamp.h>
#include <schema/QUVSG_BMCI2C_DiagnosticServiceRecord.h>

class QUVSG_BMCI2C_DiagnosticServiceRecord_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_DiagnosticServiceRecord> {
public:
    int enum_instances(
        const QUVSG_BMCI2C_DiagnosticServiceRecord* model,
        cimple::Enum_Instances_Handler<QUVSG_BMCI2C_DiagnosticServiceRecord>* handler);

    // A new instance, owned by the caller, as it is while no test keeps a record.
    static QUVSG_BMCI2C_DiagnosticServiceRecord* BuildDiagServiceRecord();

    // Splits the time stamp into its parts; nothing needs them yet.
    bool GetTimeStamp() { return timeStamp.BreakDown(); }

private:
    TimeStamp timeStamp;
};
