// The namespace in which clients look for what a server is, which namespaces it has and which
// profiles it follows.
#pragma once

#include <cimxml/operations/NameSpace.h>

#include <memory>
#include <string>
#include <vector>

namespace cimxml {

// The namespace root/interop: an object manager, this server, a CIM_Namespace for itself and for
// each of the names, and the profiles with what conforms to them. `schema` is the MOF file of its
// classes. Throws host::LoadError.
std::unique_ptr<NameSpace> InteropNameSpace(const std::string& schema, const std::string& version,
                                            const std::vector<std::string>& names);

}  // namespace cimxml
