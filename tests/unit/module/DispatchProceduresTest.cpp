// Every provider's dispatch procedure, called as the framework's adapter calls it.
#include <framework/Instance_Ptr.h>
#include <framework/String.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <module/module.h>
#include <schema/CIM_DiagnosticService.h>

#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using cimple::Registration;
using testing::ElementsAreArray;

using InstancePointer = cimple::Instance_Ptr;

InstancePointer Create(const cimple::Meta_Class* metaClass) {
    return InstancePointer(cimple::create(metaClass, false));
}

using Delivery = std::pair<bool, int>;  // whether there was an instance, and the status

void Record(cimple::Instance* instance, int status, void* clientData) {
    static_cast<std::vector<Delivery>*>(clientData)->emplace_back(instance != nullptr, status);
    cimple::unref(instance);
}

std::vector<const Registration*> AllRegistrations() {
    std::vector<const Registration*> all;
    for (const auto* r = cimple_module(); r != nullptr; r = r->next) all.push_back(r);
    return all;
}

const Registration& Find(const std::string& className) {
    for (const Registration* registration : AllRegistrations()) {
        if (className == registration->meta_class->name) return *registration;
    }
    throw std::out_of_range(className);
}

// A provider object, made and destroyed through the procedure.
class Provider {
public:
    explicit Provider(const Registration& r) : registration(r) { Call(1, &object); }
    ~Provider() { Call(2, object); }
    Provider(const Provider&) = delete;
    Provider& operator=(const Provider&) = delete;

    int operator()(int operation, void* arg1 = nullptr, void* arg2 = nullptr, void* arg3 = nullptr,
                   void* arg4 = nullptr, void* arg5 = nullptr, void* arg6 = nullptr) {
        return Call(operation, object, arg1, arg2, arg3, arg4, arg5, arg6);
    }

private:
    int Call(int operation, void* arg0, void* arg1 = nullptr, void* arg2 = nullptr,
             void* arg3 = nullptr, void* arg4 = nullptr, void* arg5 = nullptr,
             void* arg6 = nullptr) {
        return registration.proc(&registration, operation, arg0, arg1, arg2, arg3, arg4, arg5, arg6,
                                 nullptr);
    }

    const Registration& registration;
    void* object = nullptr;
};

bool IsAssociation(const Registration& registration) {
    return (registration.meta_class->flags & cimple::CLASS_ASSOCIATION) != 0;
}

void* Callback() { return reinterpret_cast<void*>(&Record); }

class EveryProcedure : public testing::TestWithParam<const Registration*> {
protected:
    const Registration& registration = *GetParam();
    Provider provider{registration};
    InstancePointer instance = Create(registration.meta_class);
    std::vector<Delivery> deliveries;
};

}  // namespace

TEST_P(EveryProcedure, DestroyingNull_DoesNothing) {
    EXPECT_EQ(registration.proc(&registration, 2, nullptr, nullptr, nullptr, nullptr, nullptr,
                                nullptr, nullptr, nullptr),
              0);
}

TEST_P(EveryProcedure, LoadAndUnload_Succeed) {
    EXPECT_EQ(provider(3), 0);
    EXPECT_EQ(provider(4), 0);
}

TEST_P(EveryProcedure, GetCreateDeleteModify_AreUnsupported) {
    cimple::Instance* result = nullptr;
    EXPECT_EQ(provider(5, instance.get(), &result), 61);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(provider(7, instance.get()), 81);
    EXPECT_EQ(provider(8, instance.get()), 91);
    EXPECT_EQ(provider(9, instance.get(), instance.get()), 101);
}

TEST_P(EveryProcedure, ClassRepository_IsThatOfTheClass) {
    const cimple::Meta_Repository* repository = nullptr;
    EXPECT_EQ(registration.proc(&registration, 13, &repository, nullptr, nullptr, nullptr, nullptr,
                                nullptr, nullptr, nullptr),
              0);
    EXPECT_EQ(repository, registration.meta_class->repository);
    EXPECT_NE(repository, nullptr);
}

TEST_P(EveryProcedure, UnusedOperations_AreUnknown) {
    for (const int operation : {-1, 11, 12, 17, 1000}) EXPECT_EQ(provider(operation), -1);
}

TEST_P(EveryProcedure, AssociationOperations_AreUnsupportedWithoutEndOrUnknown) {
    const cimple::String text;
    void* name = const_cast<cimple::String*>(&text);
    const bool is = IsAssociation(registration);
    EXPECT_EQ(provider(14, instance.get(), name, name, name, Callback(), &deliveries),
              is ? 111 : -1);
    EXPECT_EQ(provider(15, instance.get(), instance.get(), name, Callback(), &deliveries),
              is ? 121 : -1);
    EXPECT_EQ(provider(16, instance.get(), name, name, name, Callback(), &deliveries),
              is ? 171 : -1);
    EXPECT_TRUE(deliveries.empty());
}

TEST_P(EveryProcedure, UnknownMethod_IsAnsweredMinusOne) {
    const InstancePointer record = Create(registration.meta_class);  // no method of that name
    EXPECT_EQ(provider(10, instance.get(), record.get()), -1);
}

TEST_P(EveryProcedure, EveryMethodButRunDiagnostic_IsUnsupported) {
    for (std::size_t i = 0; i < registration.meta_class->method_count; ++i) {
        const cimple::Meta_Class* method = registration.meta_class->methods[i];
        if (std::string(method->name) == "RunDiagnostic") continue;
        const InstancePointer record = Create(method);
        EXPECT_EQ(provider(10, instance.get(), record.get()), 131) << method->name;
    }
}

INSTANTIATE_TEST_SUITE_P(AllProviders, EveryProcedure, testing::ValuesIn(AllRegistrations()),
                         [](const auto& registered) {
                             return std::string(registered.param->meta_class->name);
                         });

TEST(DispatchProcedures, Methods_AreThoseOfTheClassesInTheirOrder) {
    const std::vector<std::string> service = {"RequestStateChange", "StartService", "StopService"};
    auto with = [](std::vector<std::string> names, const char* last) {
        names.emplace_back(last);
        return names;
    };
    const std::map<std::string, std::vector<std::string>> expected = {
        {"QUVSG_BMCI2C_DiagnosticService", with(service, "RunDiagnostic")},
        {"QUVSG_BMCI2C_ConcreteJob", {"KillJob", "RequestStateChange"}},
        {"QUVSG_BMCI2C_HelpService", with(service, "GetHelp")},
        {"QUVSG_BMCI2C_DiagnosticsLog", {"RequestStateChange", "ClearLog"}},
        {"QUVSG_BMCI2C_ManagedSystemElement",
         {"RequestStateChange", "SetPowerState", "Reset", "EnableDevice", "OnlineDevice",
          "QuiesceDevice", "SaveProperties", "RestoreProperties"}},
        {"QUVSG_BMCI2C_DiagnosticSetting",
         {"VerifyOKToApplyToMSE", "ApplyToMSE", "VerifyOKToApplyToCollection", "ApplyToCollection",
          "VerifyOKToApplyIncrementalChangeToMSE", "ApplyIncrementalChangeToMSE",
          "VerifyOKToApplyIncrementalChangeToCollection", "ApplyIncrementalChangeToCollection"}},
    };
    for (const Registration* registration : AllRegistrations()) {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < registration->meta_class->method_count; ++i) {
            names.emplace_back(registration->meta_class->methods[i]->name);
        }
        const auto found = expected.find(registration->meta_class->name);
        EXPECT_THAT(names, ElementsAreArray(found != expected.end() ? found->second
                                                                    : std::vector<std::string>()))
            << registration->meta_class->name;
    }
}

TEST(DispatchProcedures, MethodName_InAnotherLetterCase_IsFound) {
    const Registration& registration = Find("QUVSG_BMCI2C_DiagnosticService");
    Provider provider(registration);
    const InstancePointer self = Create(registration.meta_class);
    cimple::Meta_Class shouting = CIM_Service_StartService_method::static_meta_class;
    shouting.name = "STARTSERVICE";
    const InstancePointer record = Create(&shouting);
    EXPECT_EQ(provider(10, self.get(), record.get()), 131);
}

TEST(DispatchProcedures, RunDiagnostic_OnTheHelpService_IsNoMethodThere) {
    const Registration& registration = Find("QUVSG_BMCI2C_HelpService");
    Provider provider(registration);
    const InstancePointer self = Create(registration.meta_class);
    const InstancePointer record =
        Create(&CIM_DiagnosticService_RunDiagnostic_method::static_meta_class);
    EXPECT_EQ(provider(10, self.get(), record.get()), -1);
    EXPECT_EQ(
        static_cast<CIM_DiagnosticService_RunDiagnostic_method*>(record.get())->return_value.null,
        1);
}

TEST(DispatchProcedures, ClassWithoutInstances_MakesTheEndCallOnceWithStatusZero) {
    for (const char* className :
         {"QUVSG_BMCI2C_CorrespondingSettingsRecord", "QUVSG_BMCI2C_DiagnosticSettingRecord",
          "QUVSG_BMCI2C_ElementCapabilities", "QUVSG_BMCI2C_ElementSoftwareIdentity",
          "QUVSG_BMCI2C_JobSettingData", "QUVSG_BMCI2C_LogManagesRecord",
          "QUVSG_BMCI2C_ServiceAvailableToElement"}) {
        const Registration& registration = Find(className);
        Provider provider(registration);
        const InstancePointer model = Create(registration.meta_class);
        std::vector<Delivery> deliveries;
        EXPECT_EQ(provider(6, model.get(), Callback(), &deliveries), 0);
        EXPECT_THAT(deliveries, testing::ElementsAre(Delivery(false, 0))) << className;
    }
}
