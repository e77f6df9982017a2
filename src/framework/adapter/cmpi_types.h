// CIM types as CMPI and people name them.
#pragma once

#include <cmpi/cmpi.h>
#include <framework/Meta_Class.h>

#include <string>

namespace cimple {

// The CMPI type of a scalar.
CMPIType cmpi_type(Type type);

// The CMPI type of a property or a reference, arrays included.
CMPIType cmpi_type(const Meta_Feature& feature);

// The type of a property as MOF writes it, as "uint16[]"; a reference is "CIM_Job REF".
std::string type_name(const Meta_Feature& feature);

}  // namespace cimple
