// Makes the CIM server's objects, and reads texts out of them. They belong to the server, which
// frees them at the end of the request.
#pragma once

#include <cmpi/cmpi.h>
#include <framework/Datetime.h>

#include <cstddef>

namespace cimple {

// Each throws Request_Error when the server makes no such object.
CMPIString* new_string(const CMPIBroker& broker, const char* text);
CMPIDateTime* new_datetime(const CMPIBroker& broker, const Datetime& datetime);
CMPIArray* new_array(const CMPIBroker& broker, std::size_t size, CMPIType type);
CMPIObjectPath* new_object_path(const CMPIBroker& broker, const char* nameSpace,
                                const char* className);
CMPIInstance* new_instance(const CMPIBroker& broker, const CMPIObjectPath* path);

// The text of a CMPI string, empty for null.
const char* text_of(const CMPIString* string);

const char* class_name_of(const CMPIObjectPath* path);
const char* name_space_of(const CMPIObjectPath* path);

// Throws Request_Error with the server's own text unless the status is success; `action` is what
// the server was asked for, as in "take an instance".
void check_server(const CMPIStatus& status, const char* action);

}  // namespace cimple
