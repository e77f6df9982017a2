// Class descriptions: constant tables that the generator writes from MOF, one Meta_Class for each
// CIM class and one for each extrinsic method (whose properties are the method's parameters).
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>

namespace cimple {

class Instance;
struct Meta_Class;
struct Meta_Repository;

enum class Type : std::uint8_t {
    boolean,
    uint8,
    sint8,
    uint16,
    sint16,
    uint32,
    sint32,
    uint64,
    sint64,
    real32,
    real64,
    char16,
    string,
    datetime,
};

enum Feature_Flag : std::uint32_t {
    FEATURE_PROPERTY = 1,   // a Property<T>, or a Property<Array<T>> with FEATURE_ARRAY
    FEATURE_REFERENCE = 2,  // a pointer to an instance
    FEATURE_ARRAY = 4,
    FEATURE_KEY = 8,
    FEATURE_IN = 16,   // of a method's parameter
    FEATURE_OUT = 32,  // of a method's parameter; also of its return_value
};

enum Class_Flag : std::uint32_t {
    CLASS_ABSTRACT = 1,
    CLASS_ASSOCIATION = 2,
    CLASS_METHOD = 4,  // describes a method: the class name is the method name
};

// One property, reference or parameter of a class.
struct Meta_Feature {
    const char* name;
    std::uint32_t flags;                // Feature_Flag
    Type type;                          // of a property (an array's element type)
    const Meta_Class* reference_class;  // of a reference, else null
    std::size_t offset;                 // of the member in the instance, in bytes
};

struct Meta_Class {
    const char* name;
    std::uint32_t flags;  // Class_Flag
    const Meta_Class* super_class;
    const Meta_Feature* features;  // inherited first, in the order of the CIM schema
    std::size_t feature_count;
    const Meta_Class* const* methods;  // inherited first; null when there are none
    std::size_t method_count;
    std::size_t size;  // of an instance, in bytes
    Instance* (*construct)(void* memory);
    void (*destruct)(Instance* instance);
    const Meta_Repository* repository;  // the set of classes that this one belongs to
};

// A set of class definitions.
struct Meta_Repository {
    const Meta_Class* const* classes;
    std::size_t class_count;
};

// True when `descendant` is `ancestor` or derives from it. Null is no class.
bool is_subclass(const Meta_Class* ancestor, const Meta_Class* descendant);

// The class of that name in any letter case, or null.
const Meta_Class* find_class(const Meta_Repository& repository, const char* name);

// The feature of that name in any letter case, or null.
const Meta_Feature* find_feature(const Meta_Class& meta_class, const char* name);

// The method of that name in any letter case, or null.
const Meta_Class* find_method(const Meta_Class& meta_class, const char* name);

// The lists of extrinsic methods that generated classes carry, in the order of declaration.
template <class... Methods>
struct Method_List {};

// Entries of Meta_Class for a generated class.
template <class T>
Instance* construct_as(void* memory) {
    return new (memory) T;
}
template <class T>
void destruct_as(Instance* instance) {
    static_cast<T*>(instance)->~T();
}

}  // namespace cimple
