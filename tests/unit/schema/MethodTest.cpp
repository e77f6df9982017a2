#include <framework/Instance.h>
#include <gtest/gtest.h>
#include <schema/CIM_DiagnosticSetting.h>
#include <schema/CIM_JobSettingData.h>
#include <schema/QUVSG_BMCI2C_ConcreteJob.h>
#include <schema/QUVSG_BMCI2C_DiagnosticService.h>
#include <schema/QUVSG_BMCI2C_HelpService.h>
#include <schema/QUVSG_BMCI2C_UseOfLog.h>

#include <type_traits>

namespace {

static_assert(std::is_same_v<
              QUVSG_BMCI2C_DiagnosticService::Methods,
              cimple::Method_List<CIM_EnabledLogicalElement_RequestStateChange_method,
                                  CIM_Service_StartService_method, CIM_Service_StopService_method,
                                  CIM_DiagnosticService_RunDiagnostic_method>>);
static_assert(std::is_same_v<QUVSG_BMCI2C_ConcreteJob::Methods,
                             cimple::Method_List<CIM_Job_KillJob_method,
                                                 CIM_ConcreteJob_RequestStateChange_method>>);
static_assert(std::is_same_v<QUVSG_BMCI2C_UseOfLog::Methods, cimple::Method_List<>>);

// A record of a method's parameters that lives as long as the object.
template <class Record>
class RecordOf {
public:
    ~RecordOf() { cimple::destroy(record); }
    Record* operator->() { return record; }

private:
    Record* record = cimple::create<Record>();
};

// Keeps what its methods were passed. A reference that goes in comes as a pointer to const, one
// that comes out as a reference to the record's pointer: a call with other types does not compile.
struct RecordingProvider {
    const void* self = nullptr;
    const CIM_ManagedElement* element = nullptr;
    const CIM_DiagnosticSetting* setting = nullptr;
    const CIM_JobSettingData* jobSetting = nullptr;

    int RunDiagnostic(const QUVSG_BMCI2C_DiagnosticService* target,
                      const CIM_ManagedElement* const& managedElement,
                      const CIM_DiagnosticSetting* const& diagSetting,
                      const CIM_JobSettingData* const& jobSettingData, CIM_ConcreteJob*& job,
                      cimple::Property<std::uint32_t>& returnValue) {
        self = target;
        element = managedElement;
        setting = diagSetting;
        jobSetting = jobSettingData;
        job = cimple::create<QUVSG_BMCI2C_ConcreteJob>();
        returnValue = 1U;
        return 7;
    }

    int StartService(const QUVSG_BMCI2C_DiagnosticService* target,
                     cimple::Property<std::uint32_t>& returnValue) {
        self = target;
        returnValue = 2U;
        return 131;
    }

    int GetHelp(const QUVSG_BMCI2C_HelpService*, cimple::Property<cimple::String>& document,
                cimple::Property<std::uint16_t>& format, cimple::Property<std::uint16_t>& delivery,
                cimple::Property<cimple::String>& info, cimple::Property<std::uint32_t>&) {
        info = document.value;
        format = delivery.value;
        return 0;
    }
};

TEST(MethodRecord, References_GoInAsTheyAreAndComeOutInTheRecord) {
    RecordOf<QUVSG_BMCI2C_DiagnosticService> service;
    RecordOf<CIM_DiagnosticService_RunDiagnostic_method> record;
    auto* element = cimple::create<CIM_ManagedElement>();
    auto* jobSetting = cimple::create<CIM_JobSettingData>();
    record->ManagedElement = element;
    record->JobSetting = jobSetting;
    RecordingProvider provider;
    const QUVSG_BMCI2C_DiagnosticService* self = service.operator->();
    EXPECT_EQ(record->invoke(provider, self), 7);
    EXPECT_EQ(provider.self, self);
    EXPECT_EQ(provider.element, element);
    EXPECT_EQ(provider.setting, nullptr);
    EXPECT_EQ(provider.jobSetting, jobSetting);
    ASSERT_NE(record->Job, nullptr);
    EXPECT_EQ(record->Job->meta_class, &QUVSG_BMCI2C_ConcreteJob::static_meta_class);
    EXPECT_EQ(record->return_value.null, 0);
    EXPECT_EQ(record->return_value.value, 1U);
}

TEST(MethodRecord, MethodWithoutParameters_GivesItsStatusAndReturnValue) {
    RecordOf<QUVSG_BMCI2C_DiagnosticService> service;
    RecordOf<CIM_Service_StartService_method> record;
    RecordingProvider provider;
    const QUVSG_BMCI2C_DiagnosticService* self = service.operator->();
    EXPECT_EQ(record->invoke(provider, self), 131);
    EXPECT_EQ(provider.self, self);
    EXPECT_EQ(record->return_value.value, 2U);
}

TEST(MethodRecord, Properties_AreTheRecordsOwnMembers) {
    RecordOf<QUVSG_BMCI2C_HelpService> service;
    RecordOf<CIM_HelpService_GetHelp_method> record;
    record->RequestedDocument = cimple::String("manual");
    record->RequestedDelivery = std::uint16_t{4};
    RecordingProvider provider;
    const QUVSG_BMCI2C_HelpService* self = service.operator->();
    EXPECT_EQ(record->invoke(provider, self), 0);
    EXPECT_STREQ(record->DocumentInfo.value.c_str(), "manual");
    EXPECT_EQ(record->DocumentInfo.null, 0);
    EXPECT_EQ(record->Format.value, 4);
    EXPECT_EQ(record->return_value.null, 1);
}

TEST(MethodRecord, IsNamedAfterItsMethod) {
    EXPECT_STREQ(CIM_DiagnosticService_RunDiagnostic_method::static_meta_class.name,
                 "RunDiagnostic");
    EXPECT_STREQ(CIM_ConcreteJob_RequestStateChange_method::static_meta_class.name,
                 "RequestStateChange");
}

}  // namespace
