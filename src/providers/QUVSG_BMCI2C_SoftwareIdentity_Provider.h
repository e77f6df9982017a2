// The diagnostic as software: its version and its maker.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <schema/QUVSG_BMCI2C_SoftwareIdentity.h>

class QUVSG_BMCI2C_SoftwareIdentity_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_SoftwareIdentity> {
public:
    int enum_instances(const QUVSG_BMCI2C_SoftwareIdentity* model,
                       cimple::Enum_Instances_Handler<QUVSG_BMCI2C_SoftwareIdentity>* handler);

    // A new instance, owned by the caller; its values are the same every time.
    static QUVSG_BMCI2C_SoftwareIdentity* BuildSoftwareIdentity();
};
