// Turns the CIM server's object paths, instances and arguments into instances.
//
// Only what is there is set; the rest stays null. A value that does not fit its property ends the
// request as an invalid parameter, with a text that names it.
#pragma once

#include <cmpi/cmpi.h>
#include <framework/Instance_Ptr.h>

namespace cimple {

// A new instance of the class with the path's keys, some or all of them. Throws Request_Error also
// for a key that the class does not have, unless it is null or an empty text.
Instance_Ptr read_target(const Meta_Class& meta_class, const CMPIObjectPath* path);

// A new instance of the path's class with the path's keys. If the repository lacks the class,
// `declared`, a reference's declared class, is used instead; if that is null, a bare Instance.
// Throws Request_Error when the path's class does not derive from `declared`.
Instance_Ptr read_reference(const Meta_Repository* repository, const Meta_Class* declared,
                            const CMPIObjectPath* path);

// The same with all properties of a CMPI instance.
Instance_Ptr read_instance(const Meta_Repository* repository, const Meta_Class* declared,
                           const CMPIInstance* instance);

// The record of a method's parameters; `arguments` may be null. Arguments that are missing, null or
// for output only leave their parameter null. Throws Request_Error also for an argument that the
// method does not have.
Instance_Ptr read_arguments(const Meta_Class& method, const CMPIArgs* arguments);

}  // namespace cimple
