// A record of the settings of a run. Has no instances.
#pragma once

#include <framework/Default_Operations.h>
#include <schema/QUVSG_BMCI2C_DiagnosticSettingRecord.h>

class QUVSG_BMCI2C_DiagnosticSettingRecord_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_DiagnosticSettingRecord>,
      public cimple::Empty_Enumeration<QUVSG_BMCI2C_DiagnosticSettingRecord> {};
