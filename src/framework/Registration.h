// A provider as the framework knows it, and the operations that drive it.
#pragma once

#include <framework/Meta_Class.h>

namespace cimple {

// The operations of a provider; dispatch.h lists the arguments of each.
enum Operation : int {
    OPERATION_GET_META_CLASS = 0,
    OPERATION_CREATE_PROVIDER = 1,
    OPERATION_DESTROY_PROVIDER = 2,
    OPERATION_LOAD = 3,
    OPERATION_UNLOAD = 4,
    OPERATION_GET_INSTANCE = 5,
    OPERATION_ENUM_INSTANCES = 6,
    OPERATION_CREATE_INSTANCE = 7,
    OPERATION_DELETE_INSTANCE = 8,
    OPERATION_MODIFY_INSTANCE = 9,
    OPERATION_INVOKE_METHOD = 10,
    // 11 and 12: indications, which are not supported
    OPERATION_GET_REPOSITORY = 13,
    OPERATION_ENUM_ASSOCIATOR_NAMES = 14,
    OPERATION_ENUM_REFERENCES = 15,
    OPERATION_ENUM_ASSOCIATORS = 16,
};

struct Registration;

// Performs one operation (an Operation) of a provider and returns its status (a Status).
using Provider_Proc = int (*)(const Registration* registration, int operation, void* arg0,
                              void* arg1, void* arg2, void* arg3, void* arg4, void* arg5,
                              void* arg6, void* arg7);

// One provider of a module. The registrations of a module form a chain.
struct Registration {
    const char* module_name;
    const char* provider_name;
    Provider_Proc proc;
    const Meta_Class* meta_class;
    const Registration* next;
};

}  // namespace cimple
