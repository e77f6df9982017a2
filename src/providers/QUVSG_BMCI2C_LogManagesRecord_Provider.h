// Ties the log to its records. Has no instances.
#pragma once

#include <framework/Default_Operations.h>
#include <schema/QUVSG_BMCI2C_LogManagesRecord.h>

class QUVSG_BMCI2C_LogManagesRecord_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_LogManagesRecord>,
      public cimple::Default_Association_Operations<QUVSG_BMCI2C_LogManagesRecord>,
      public cimple::Empty_Enumeration<QUVSG_BMCI2C_LogManagesRecord> {};
