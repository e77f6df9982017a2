// The help service of the diagnostic.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <schema/QUVSG_BMCI2C_HelpService.h>

class QUVSG_BMCI2C_HelpService_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_HelpService> {
public:
    int enum_instances(const QUVSG_BMCI2C_HelpService* model,
                       cimple::Enum_Instances_Handler<QUVSG_BMCI2C_HelpService>* handler);

    static constexpr cimple::Unsupported_Method RequestStateChange{};
    static constexpr cimple::Unsupported_Method StartService{};
    static constexpr cimple::Unsupported_Method StopService{};
    static constexpr cimple::Unsupported_Method GetHelp{};

    // A new instance, owned by the caller; its values are the same every time.
    static QUVSG_BMCI2C_HelpService* BuildHelpService();
};
