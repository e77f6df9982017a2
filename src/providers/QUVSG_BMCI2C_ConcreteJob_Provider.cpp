#include <providers/OneInstance.h>
#include <providers/QUVSG_BMCI2C_ConcreteJob_Provider.h>
#include <test/Globals_BMCI2C_Test.h>

using cimple::Datetime;

int QUVSG_BMCI2C_ConcreteJob_Provider::enum_instances(
    const QUVSG_BMCI2C_ConcreteJob* /*model*/,
    cimple::Enum_Instances_Handler<QUVSG_BMCI2C_ConcreteJob>* handler) {
    return EnumerateOne({"QUVSG_BMCI2C_ConcreteJob_Provider", "", true}, handler, BuildConcreteJob);
}

QUVSG_BMCI2C_ConcreteJob* QUVSG_BMCI2C_ConcreteJob_Provider::BuildConcreteJob() {
    Globals_BMCI2C_Test* globals = Globals_BMCI2C_Test::Instance();
    auto* job = cimple::create<QUVSG_BMCI2C_ConcreteJob>();
    job->Caption = "QUVSG_BMCI2C_ConcreteJob";
    job->Description = "QUVSG_BMCI2C_ConcreteJob";
    job->ElementName = "QUVSG_BMCI2C_ConcreteJob";
    job->InstallDate = globals->installDate;
    job->Name = "QUVSG_BMCI2C_ConcreteJob";
    job->OperationalStatus = {job->OperationalStatus_OK};
    job->StatusDescriptions = {"Status OK"};
    job->Status = "OK";
    job->JobStatus = "Job Status OK";
    job->TimeSubmitted = Datetime::now();
    job->ScheduledStartTime = Datetime::now();
    job->StartTime = Datetime::now();
    job->ElapsedTime = Datetime(0);
    job->JobRunTimes = 1;
    job->RunDayOfWeek = 0;
    job->RunStartInterval = Datetime(0);
    job->LocalOrUtcTime = job->LocalOrUtcTime_LocalTime;
    job->Notify = "QUV";
    job->Owner = "QUV";
    job->Priority = 0;
    job->PercentComplete = 100;
    job->DeleteOnCompletion = false;
    job->ErrorCode = 0;
    job->ErrorDescription = "No Error Description";
    job->RecoveryAction = job->RecoveryAction_Unknown;
    job->OtherRecoveryAction = "No Other Recovery Action";
    job->InstanceID = globals->GetInstanceID();
    job->JobState = job->JobState_Completed;
    job->TimeOfLastStateChange = Datetime(0);
    return job;
}
