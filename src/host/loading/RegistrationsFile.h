// Reads which provider serves which class, from a file in sfcb's format: a stanza per class.
//
//     [CIM_Thing]
//        provider: CIM_Thing_Provider
//        location: thing.cmpi
//        type: instance method
//        namespace: root/cimv2
//        unload: never
//
// `#` begins a comment. `type` and `namespace` may hold several words; `unload` may be left out.
#pragma once

#include <host/loading/LoadError.h>
#include <host/loading/Registration.h>

#include <istream>
#include <string>
#include <vector>

namespace host {

// Reads the file. Throws LoadError, with file and line of what is wrong.
std::vector<Registration> ReadRegistrations(const std::string& path);

// The same for a text; `name` stands for the file's name in errors.
std::vector<Registration> ReadRegistrations(std::istream& text, const std::string& name);

}  // namespace host
