// The operations that a provider need not write: bases without data or virtual functions.
//
//     class ACME_Fan_Provider : public cimple::Default_Instance_Operations<ACME_Fan> {
//     public:
//         int enum_instances(const ACME_Fan* model,
//                            cimple::Enum_Instances_Handler<ACME_Fan>* handler);
//         static constexpr cimple::Unsupported_Method Reset{};
//     };
#pragma once

#include <framework/Association_Handlers.h>
#include <framework/Enum_Instances_Handler.h>
#include <framework/Status.h>
#include <framework/String.h>

namespace cimple {

// Loads and unloads without doing anything; supports no operation on a single instance.
template <class T>
class Default_Instance_Operations {
public:
    int load() { return STATUS_OK; }
    int unload() { return STATUS_OK; }
    int get_instance(const T* /*model*/, T*& /*instance*/) { return GET_INSTANCE_UNSUPPORTED; }
    int create_instance(T* /*instance*/) { return CREATE_INSTANCE_UNSUPPORTED; }
    int delete_instance(const T* /*instance*/) { return DELETE_INSTANCE_UNSUPPORTED; }
    int modify_instance(const T* /*model*/, const T* /*instance*/) {
        return MODIFY_INSTANCE_UNSUPPORTED;
    }
};

// Supports no association operation.
template <class T>
class Default_Association_Operations {
public:
    int enum_associator_names(const Instance* /*instance*/, const String& /*result_class*/,
                              const String& /*role*/, const String& /*result_role*/,
                              Enum_Associator_Names_Handler<Instance>* /*handler*/) {
        return ENUM_ASSOCIATOR_NAMES_UNSUPPORTED;
    }
    int enum_references(const Instance* /*instance*/, const T* /*model*/, const String& /*role*/,
                        Enum_References_Handler<T>* /*handler*/) {
        return ENUM_REFERENCES_UNSUPPORTED;
    }
    int enum_associators(const Instance* /*instance*/, const String& /*result_class*/,
                         const String& /*role*/, const String& /*result_role*/,
                         Enum_Associators_Handler<Instance>* /*handler*/) {
        return ENUM_ASSOCIATORS_UNSUPPORTED;
    }
};

// For a class that has no instances.
template <class T>
class Empty_Enumeration {
public:
    int enum_instances(const T* /*model*/, Enum_Instances_Handler<T>* /*handler*/) {
        return STATUS_OK;
    }
};

// For a method that is not supported: a constant of this type stands in for the function.
struct Unsupported_Method {
    template <class... Args>
    int operator()(const Args&... /*arguments*/) const {
        return INVOKE_METHOD_UNSUPPORTED;
    }
};

}  // namespace cimple
