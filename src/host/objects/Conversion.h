// Between a provider's CMPI values and the host's.
#pragma once

#include <cmpi/cmpi.h>
#include <host/Value.h>

#include <string>
#include <vector>

namespace host {

// The value that a provider handed in: copied, strings and objects included. A null pointer and a
// null object are NULL of that type. Throws Failure for a type that CIM data cannot have
// (CMPI_RC_ERR_INVALID_DATA_TYPE) and for an invalid object.
Value FromCmpi(const CMPIValue* value, CMPIType type);

// The value as a provider sees it. Objects belong to the current request; `state` is that of a
// value that is not NULL.
CMPIData ToCmpi(const Value& value, CMPIValueState state = CMPI_goodValue);

// The type under which a value of that type is kept: texts are strings.
CMPIType KeptType(CMPIType type);

// Sets the value of that name, in any letter case, or adds it.
void SetValue(std::vector<NamedValue>& values, const char* name, Value value);

// Lookups in a list of named values, as several function tables offer them. `what` names an element
// in the error, which is CMPI_RC_ERR_NOT_FOUND.
CMPIData LookUp(const std::vector<NamedValue>& values, const char* name, const char* what,
                CMPIValueState state = CMPI_goodValue);
CMPIData LookUpAt(const std::vector<NamedValue>& values, CMPICount index, CMPIString** name,
                  const char* what, CMPIValueState state = CMPI_goodValue);

}  // namespace host
