// The headers of all providers in provider_list.h, and with them of their classes.
#pragma once

#include <providers/QUVSG_BMCI2C_AffectedJobElement_Provider.h>
#include <providers/QUVSG_BMCI2C_AvailableDiagnosticService_Provider.h>
#include <providers/QUVSG_BMCI2C_ConcreteJob_Provider.h>
#include <providers/QUVSG_BMCI2C_CorrespondingSettingsRecord_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticServiceCapabilities_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticServiceRecord_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticService_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticSettingRecord_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticSetting_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticsLog_Provider.h>
#include <providers/QUVSG_BMCI2C_ElementCapabilities_Provider.h>
#include <providers/QUVSG_BMCI2C_ElementSetting_Provider.h>
#include <providers/QUVSG_BMCI2C_ElementSoftwareIdentity_Provider.h>
#include <providers/QUVSG_BMCI2C_HelpService_Provider.h>
#include <providers/QUVSG_BMCI2C_JobSettingData_Provider.h>
#include <providers/QUVSG_BMCI2C_LogManagesRecord_Provider.h>
#include <providers/QUVSG_BMCI2C_ManagedSystemElement_Provider.h>
#include <providers/QUVSG_BMCI2C_OwningJobElement_Provider.h>
#include <providers/QUVSG_BMCI2C_RecordAppliesToElement_Provider.h>
#include <providers/QUVSG_BMCI2C_ServiceAvailableToElement_Provider.h>
#include <providers/QUVSG_BMCI2C_SoftwareIdentity_Provider.h>
#include <providers/QUVSG_BMCI2C_UseOfLog_Provider.h>
