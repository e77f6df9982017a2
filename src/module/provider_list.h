// The one list of the module's providers, alphabetical by class name. Registrations, dispatch
// procedures and factories are all made from it.
#pragma once

// PLAIN(X) stands for a class QUVSG_BMCI2C_X, ASSOCIATION(X) for an association class.
#define BMCI2C_PROVIDERS(PLAIN, ASSOCIATION) \
    ASSOCIATION(AffectedJobElement)          \
    ASSOCIATION(AvailableDiagnosticService)  \
    PLAIN(ConcreteJob)                       \
    ASSOCIATION(CorrespondingSettingsRecord) \
    PLAIN(DiagnosticCompletionRecord)        \
    PLAIN(DiagnosticService)                 \
    PLAIN(DiagnosticServiceCapabilities)     \
    PLAIN(DiagnosticServiceRecord)           \
    PLAIN(DiagnosticSetting)                 \
    PLAIN(DiagnosticSettingRecord)           \
    PLAIN(DiagnosticsLog)                    \
    ASSOCIATION(ElementCapabilities)         \
    ASSOCIATION(ElementSetting)              \
    ASSOCIATION(ElementSoftwareIdentity)     \
    PLAIN(HelpService)                       \
    PLAIN(JobSettingData)                    \
    ASSOCIATION(LogManagesRecord)            \
    PLAIN(ManagedSystemElement)              \
    ASSOCIATION(OwningJobElement)            \
    ASSOCIATION(RecordAppliesToElement)      \
    ASSOCIATION(ServiceAvailableToElement)   \
    PLAIN(SoftwareIdentity)                  \
    ASSOCIATION(UseOfLog)
