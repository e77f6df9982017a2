// The settings of the diagnostic service.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Enum_Instances_Handler.h>
#include <schema/QUVSG_BMCI2C_DiagnosticSetting.h>

class QUVSG_BMCI2C_DiagnosticSetting_Provider
    : public cimple::Default_Instance_Operations<QUVSG_BMCI2C_DiagnosticSetting> {
public:
    int enum_instances(const QUVSG_BMCI2C_DiagnosticSetting* model,
                       cimple::Enum_Instances_Handler<QUVSG_BMCI2C_DiagnosticSetting>* handler);

    static constexpr cimple::Unsupported_Method VerifyOKToApplyToMSE{};
    static constexpr cimple::Unsupported_Method ApplyToMSE{};
    static constexpr cimple::Unsupported_Method VerifyOKToApplyToCollection{};
    static constexpr cimple::Unsupported_Method ApplyToCollection{};
    static constexpr cimple::Unsupported_Method VerifyOKToApplyIncrementalChangeToMSE{};
    static constexpr cimple::Unsupported_Method ApplyIncrementalChangeToMSE{};
    static constexpr cimple::Unsupported_Method VerifyOKToApplyIncrementalChangeToCollection{};
    static constexpr cimple::Unsupported_Method ApplyIncrementalChangeToCollection{};

    // A new instance, owned by the caller; its values are the same every time.
    static QUVSG_BMCI2C_DiagnosticSetting* BuildDiagSetting();
};
