// Ties a record to the settings record it was made with. Has no instances.
#pragma once

#include <framework/Default_Operations.h>
#include <schema/QUVSG_BMCI2C_CorrespondingSettingsRecord.h>

class QUVSG_BMCI2C_CorrespondingSettingsRecord_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_CorrespondingSettingsRecord>,
      public cimple::Default_Association_Operations<QUVSG_BMCI2C_CorrespondingSettingsRecord>,
      public cimple::Empty_Enumeration<QUVSG_BMCI2C_CorrespondingSettingsRecord> {};
