// Settings of a job. Has no instances.
#pragma once

#include <framework/Default_Operations.h>
#include <schema/QUVSG_BMCI2C_JobSettingData.h>

class QUVSG_BMCI2C_JobSettingData_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_JobSettingData>,
      public cimple::Empty_Enumeration<QUVSG_BMCI2C_JobSettingData> {};
