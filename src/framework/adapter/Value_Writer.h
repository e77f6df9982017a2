// Turns values of an instance into CMPI values.
#pragma once

#include <cmpi/cmpi.h>
#include <framework/Array.h>
#include <framework/adapter/cmpi_types.h>
#include <framework/adapter/objects.h>

#include <cstring>

namespace cimple {

// A number, a boolean or a character: every member of the union begins at its first byte.
template <class T>
CMPIValue to_cmpi(const CMPIBroker& /*broker*/, const T& scalar) {
    static_assert(type_of<T> < Type::string);
    CMPIValue value{};
    std::memcpy(&value, &scalar, sizeof scalar);
    return value;
}

inline CMPIValue to_cmpi(const CMPIBroker& broker, const String& text) {
    CMPIValue value{};
    value.string = new_string(broker, text.c_str());
    return value;
}

inline CMPIValue to_cmpi(const CMPIBroker& broker, const Datetime& datetime) {
    CMPIValue value{};
    value.dateTime = new_datetime(broker, datetime);
    return value;
}

template <class T>
CMPIValue to_cmpi(const CMPIBroker& broker, const Array<T>& elements) {
    const CMPIType type = cmpi_type(type_of<T>);
    CMPIValue list{};
    list.array = new_array(broker, elements.size(), type);
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const CMPIValue element = to_cmpi(broker, elements[i]);
        check_server(
            list.array->ft->setElementAt(list.array, static_cast<CMPICount>(i), &element, type),
            "take an array's element");
    }
    return list;
}

}  // namespace cimple
