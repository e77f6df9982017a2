// A property's value and null flag. Assigning a value makes the property non-null; a property that
// is never assigned stays null.
#pragma once

#include <cstdint>
#include <utility>

namespace cimple {

template <class T>
struct Property {
    T value{};
    std::uint8_t null = 1;  // 1: null

    Property() = default;

    Property& operator=(const T& newValue) {
        value = newValue;
        null = 0;
        return *this;
    }

    void clear() {
        value = T{};
        null = 1;
    }
};

}  // namespace cimple
