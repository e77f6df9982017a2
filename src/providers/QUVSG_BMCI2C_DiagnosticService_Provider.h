// The diagnostic as a service: one instance per registered test, and the method that runs it.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <framework/String.h>
#include <schema/CIM_ConcreteJob.h>
#include <schema/CIM_DiagnosticSetting.h>
#include <schema/CIM_JobSettingData.h>
#include <schema/CIM_ManagedElement.h>
#include <schema/QUVSG_BMCI2C_DiagnosticService.h>

#include <cstdint>

class QUVSG_BMCI2C_DiagnosticService_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_DiagnosticService> {
public:
    int enum_instances(const QUVSG_BMCI2C_DiagnosticService* model,
                       cimple::Enum_Instances_Handler<QUVSG_BMCI2C_DiagnosticService>* handler);

    static constexpr cimple::Unsupported_Method RequestStateChange{};
    static constexpr cimple::Unsupported_Method StartService{};
    static constexpr cimple::Unsupported_Method StopService{};

    // Runs the test whose element name is the Name of `self`, in the same letter case, and gives a
    // completed job, owned by the caller. The return value is always 1 after a run: the outcome is
    // read from the completion record. Returns 130 when no test has that name.
    int RunDiagnostic(const QUVSG_BMCI2C_DiagnosticService* self,
                      const CIM_ManagedElement* ManagedElement,
                      const CIM_DiagnosticSetting* DiagSetting,
                      const CIM_JobSettingData* JobSetting, CIM_ConcreteJob*& Job,
                      cimple::Property<std::uint32_t>& return_value);

    // A new service instance, owned by the caller.
    static QUVSG_BMCI2C_DiagnosticService* BuildService(cimple::String caption,
                                                        cimple::String description,
                                                        cimple::String elementName);
};
