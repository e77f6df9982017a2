// Ties the software identity to an element. Has no instances.
#pragma once

#include <framework/Default_Operations.h>
#include <schema/QUVSG_BMCI2C_ElementSoftwareIdentity.h>

class QUVSG_BMCI2C_ElementSoftwareIdentity_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_ElementSoftwareIdentity>,
      public cimple::Default_Association_Operations<QUVSG_BMCI2C_ElementSoftwareIdentity>,
      public cimple::Empty_Enumeration<QUVSG_BMCI2C_ElementSoftwareIdentity> {};
