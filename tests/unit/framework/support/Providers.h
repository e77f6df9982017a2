// Providers of the test classes whose operations a test scripts.
#pragma once

#include <framework/Default_Operations.h>
#include <framework/Registration.h>

#include <functional>

#include "Classes.h"

// What the fan's provider does; an empty function means the default operation.
struct Fan_Script {
    std::function<void()> construct;
    std::function<void()> destruct;
    std::function<int()> load;
    std::function<int()> unload;
    std::function<int(const ACME_Fan* model, ACME_Fan*& instance)> getInstance;
    std::function<int(const ACME_Fan* model, cimple::Enum_Instances_Handler<ACME_Fan>* handler)>
        enumInstances;
    std::function<int(ACME_Fan* instance)> createInstance;
    std::function<int(const ACME_Fan* instance)> deleteInstance;
    std::function<int(const ACME_Fan* model, const ACME_Fan* instance)> modifyInstance;
    std::function<int(const ACME_Fan* self, cimple::Property<std::uint32_t>& returnValue)> reset;
    std::function<int(const ACME_Fan* self, ACME_Fan_Swap_method& parameters)> swap;
};
extern Fan_Script fanScript;

class ACME_Fan_Provider : public cimple::Default_Instance_Operations<ACME_Fan> {
public:
    ACME_Fan_Provider();
    ~ACME_Fan_Provider();
    int load();
    int unload();
    int get_instance(const ACME_Fan* model, ACME_Fan*& instance);
    int enum_instances(const ACME_Fan* model, cimple::Enum_Instances_Handler<ACME_Fan>* handler);
    int create_instance(ACME_Fan* instance);
    int delete_instance(const ACME_Fan* instance);
    int modify_instance(const ACME_Fan* model, const ACME_Fan* instance);
    int Reset(const ACME_Fan* self, cimple::Property<std::uint32_t>& return_value);
    int Swap(const ACME_Fan* self, const ACME_Device* Neighbour,
             const cimple::Property<std::uint8_t>& Count,
             const cimple::Property<cimple::Array<cimple::String>>& Notes, ACME_Device*& Former,
             cimple::Property<cimple::String>& Report,
             cimple::Property<std::uint32_t>& return_value);

    static constexpr cimple::Unsupported_Method Stop{};

private:
    int requests = 0;  // what makes the adapter handle one request at a time
};

// What the association's provider does.
struct Cools_Script {
    std::function<int(const ACME_Cools* model, cimple::Enum_Instances_Handler<ACME_Cools>* handler)>
        enumInstances;
    std::function<int(const cimple::Instance* source, const cimple::String& resultClass,
                      const cimple::String& role, const cimple::String& resultRole,
                      std::function<void(cimple::Instance*)> handle)>
        associators;  // also of associator names
    std::function<int(const cimple::Instance* source, const ACME_Cools* model,
                      const cimple::String& role,
                      cimple::Enum_References_Handler<ACME_Cools>* handler)>
        references;
};
extern Cools_Script coolsScript;

// Has no data members.
class ACME_Cools_Provider : public cimple::Default_Instance_Operations<ACME_Cools>,
                            public cimple::Default_Association_Operations<ACME_Cools> {
public:
    int enum_instances(const ACME_Cools* model,
                       cimple::Enum_Instances_Handler<ACME_Cools>* handler);
    int enum_associator_names(const cimple::Instance* instance, const cimple::String& result_class,
                              const cimple::String& role, const cimple::String& result_role,
                              cimple::Enum_Associator_Names_Handler<cimple::Instance>* handler);
    int enum_associators(const cimple::Instance* instance, const cimple::String& result_class,
                         const cimple::String& role, const cimple::String& result_role,
                         cimple::Enum_Associators_Handler<cimple::Instance>* handler);
    int enum_references(const cimple::Instance* instance, const ACME_Cools* model,
                        const cimple::String& role,
                        cimple::Enum_References_Handler<ACME_Cools>* handler);
};

// A provider that has the default operations only.
class ACME_Device_Provider : public cimple::Default_Instance_Operations<ACME_Device>,
                             public cimple::Empty_Enumeration<ACME_Device> {};

extern const cimple::Registration fanRegistration;
extern const cimple::Registration coolsRegistration;
extern const cimple::Registration deviceRegistration;
