// Ties a service to an element. Has no instances.
#pragma once

#include <framework/Default_Operations.h>
#include <schema/QUVSG_BMCI2C_ServiceAvailableToElement.h>

class QUVSG_BMCI2C_ServiceAvailableToElement_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_ServiceAvailableToElement>,
      public cimple::Default_Association_Operations<QUVSG_BMCI2C_ServiceAvailableToElement>,
      public cimple::Empty_Enumeration<QUVSG_BMCI2C_ServiceAvailableToElement> {};
