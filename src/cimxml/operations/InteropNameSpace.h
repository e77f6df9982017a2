// The name space in which clients look for what a server is and which name spaces it has.
#pragma once

#include <cimxml/operations/NameSpace.h>

#include <string>
#include <vector>

namespace cimxml {

// The name space root/interop: an object manager, this server, and a CIM_Namespace for itself and
// for each of the names. `schema` is the MOF file of its classes. Throws host::LoadError.
std::unique_ptr<const NameSpace> InteropNameSpace(const std::string& schema,
                                                  const std::string& version,
                                                  const std::vector<std::string>& names);

}  // namespace cimxml
