// The job that stands for a run of the diagnostic: runs are synchronous, so it is always completed.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <providers/TimeStamp.h>
#include <schema/QUVSG_BMCI2C_ConcreteJob.h>

class QUVSG_BMCI2C_ConcreteJob_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_ConcreteJob> {
public:
    int enum_instances(const QUVSG_BMCI2C_ConcreteJob* model,
                       cimple::Enum_Instances_Handler<QUVSG_BMCI2C_ConcreteJob>* handler);

    static constexpr cimple::Unsupported_Method KillJob{};
    static constexpr cimple::Unsupported_Method RequestStateChange{};

    // A new job with the registry's current instance ID. The outcome of the run is not here but in
    // the completion record: every job reads "OK" and completed.
    static QUVSG_BMCI2C_ConcreteJob* BuildConcreteJob();

    // Splits the time stamp into its parts; nothing needs them yet.
    bool GetTimeStamp() { return timeStamp.BreakDown(); }

private:
    TimeStamp timeStamp;
};
