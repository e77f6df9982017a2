// Asks the CIM server that the current request came from.
//
//     cimple::Instance_Enumerator enumerator;
//     if (cimple::cimom::enum_instances("root/cimv2", model, enumerator) != 0) return;
//     for (; enumerator; enumerator++) {
//         cimple::Instance* instance = enumerator();
//         ...
//         cimple::unref(instance);
//     }
#pragma once

#include <framework/Instance_Enumerator.h>
#include <framework/String.h>

namespace cimple {

namespace cimom {

// Asks the CIM server for all instances of the model's class. Returns 0 and fills the enumerator,
// or a CMPI return code and leaves it empty: outside of a request, when the server refuses, when
// its answer breaks off, and when that holds a value that does not fit its property. An instance of
// a class that the model's repository lacks comes as a bare Instance that has only its namespace.
int enum_instances(const String& nameSpace, const Instance* model, Instance_Enumerator& enumerator);

}  // namespace cimom

}  // namespace cimple
