// The C++ types that stand for the CIM types.
#pragma once

#include <framework/Datetime.h>
#include <framework/Meta_Class.h>
#include <framework/String.h>

#include <cstddef>
#include <cstdint>

namespace cimple {

inline constexpr std::size_t kTypeCount = static_cast<std::size_t>(Type::datetime) + 1;

// The CIM type that a C++ type stands for; only these have one.
template <class T>
extern const Type type_of;
template <>
inline constexpr Type type_of<bool> = Type::boolean;
template <>
inline constexpr Type type_of<std::uint8_t> = Type::uint8;
template <>
inline constexpr Type type_of<std::int8_t> = Type::sint8;
template <>
inline constexpr Type type_of<std::uint16_t> = Type::uint16;
template <>
inline constexpr Type type_of<std::int16_t> = Type::sint16;
template <>
inline constexpr Type type_of<std::uint32_t> = Type::uint32;
template <>
inline constexpr Type type_of<std::int32_t> = Type::sint32;
template <>
inline constexpr Type type_of<std::uint64_t> = Type::uint64;
template <>
inline constexpr Type type_of<std::int64_t> = Type::sint64;
template <>
inline constexpr Type type_of<float> = Type::real32;
template <>
inline constexpr Type type_of<double> = Type::real64;
template <>
inline constexpr Type type_of<char16_t> = Type::char16;
template <>
inline constexpr Type type_of<String> = Type::string;
template <>
inline constexpr Type type_of<Datetime> = Type::datetime;

// Calls f.template operator()<T>() with the C++ type that stands for a CIM type.
template <class F>
decltype(auto) with_type(Type type, F&& f) {
    switch (type) {
        case Type::boolean:
            return f.template operator()<bool>();
        case Type::uint8:
            return f.template operator()<std::uint8_t>();
        case Type::sint8:
            return f.template operator()<std::int8_t>();
        case Type::uint16:
            return f.template operator()<std::uint16_t>();
        case Type::sint16:
            return f.template operator()<std::int16_t>();
        case Type::uint32:
            return f.template operator()<std::uint32_t>();
        case Type::sint32:
            return f.template operator()<std::int32_t>();
        case Type::uint64:
            return f.template operator()<std::uint64_t>();
        case Type::sint64:
            return f.template operator()<std::int64_t>();
        case Type::real32:
            return f.template operator()<float>();
        case Type::real64:
            return f.template operator()<double>();
        case Type::char16:
            return f.template operator()<char16_t>();
        case Type::string:
            return f.template operator()<String>();
        case Type::datetime:
            return f.template operator()<Datetime>();
    }
    __builtin_unreachable();
}

}  // namespace cimple
