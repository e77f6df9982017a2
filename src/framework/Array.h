// A CIM array. Copies share one counted representation until one of them is changed.
//
//     cimple::Array<std::uint16_t> numbers = {2, 3};
//     numbers.append(5);
//     for (std::uint16_t number : numbers) ...
#pragma once

#include <framework/Datetime.h>
#include <framework/Meta_Class.h>
#include <framework/String.h>
#include <framework/types.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace cimple {

struct Array_Rep;

// The operations on one element of an array.
struct Array_Traits {
    Array_Rep* empty;  // the representation of every array without elements
    std::size_t size;  // of an element, in bytes
    void (*copy)(void* target, const void* source) noexcept;  // constructs the target
    void (*destruct)(void* element) noexcept;
};

// The traits of every CIM type, indexed by it.
extern const Array_Traits __cim_array_traits[kTypeCount];

// An array holds a pointer to its representation, which these functions make, share and change.
void __construct(Array_Rep*& rep, const Array_Traits& traits) noexcept;  // empty
void __construct(Array_Rep*& rep, Array_Rep* source) noexcept;           // a copy
void __assign(Array_Rep*& target, Array_Rep* source) noexcept;
void __append(Array_Rep*& rep, const void* elements, std::size_t count);
void __destruct(Array_Rep* rep) noexcept;

std::size_t array_size(const Array_Rep* rep) noexcept;
const void* array_elements(const Array_Rep* rep) noexcept;

template <class T>
class Array {
public:
    Array() noexcept { __construct(rep, __cim_array_traits[static_cast<std::size_t>(type_of<T>)]); }
    Array(std::initializer_list<T> elements) : Array() {
        append(elements.begin(), elements.size());
    }
    Array(const Array& other) noexcept { __construct(rep, other.rep); }
    Array& operator=(const Array& other) noexcept {
        __assign(rep, other.rep);
        return *this;
    }
    ~Array() { __destruct(rep); }

    void append(const T& element) { append(&element, 1); }
    void append(const T* elements, std::size_t count) { __append(rep, elements, count); }

    std::size_t size() const { return array_size(rep); }
    bool empty() const { return size() == 0; }
    const T& operator[](std::size_t index) const { return begin()[index]; }
    const T* begin() const { return static_cast<const T*>(array_elements(rep)); }
    const T* end() const { return begin() + size(); }

    friend bool operator==(const Array& left, const Array& right) {
        return std::equal(left.begin(), left.end(), right.begin(), right.end());
    }

private:
    Array_Rep* rep;
};

}  // namespace cimple
