// The tested device: the I2C bus, as one fixed element.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <schema/QUVSG_BMCI2C_ManagedSystemElement.h>

class QUVSG_BMCI2C_ManagedSystemElement_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_ManagedSystemElement> {
public:
    int enum_instances(const QUVSG_BMCI2C_ManagedSystemElement* model,
                       cimple::Enum_Instances_Handler<QUVSG_BMCI2C_ManagedSystemElement>* handler);

    static constexpr cimple::Unsupported_Method RequestStateChange{};
    static constexpr cimple::Unsupported_Method SetPowerState{};
    static constexpr cimple::Unsupported_Method Reset{};
    static constexpr cimple::Unsupported_Method EnableDevice{};
    static constexpr cimple::Unsupported_Method OnlineDevice{};
    static constexpr cimple::Unsupported_Method QuiesceDevice{};
    static constexpr cimple::Unsupported_Method SaveProperties{};
    static constexpr cimple::Unsupported_Method RestoreProperties{};

    // A new instance, owned by the caller; its values are the same every time.
    static QUVSG_BMCI2C_ManagedSystemElement* BuildElement();
};
