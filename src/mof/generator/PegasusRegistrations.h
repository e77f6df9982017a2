// The registrations of the module's providers as OpenPegasus keeps them: instances in MOF.
#pragma once

#include <mof/Model.h>

#include <string>

namespace mof {

// One provider module of that version, and for each class of the module a provider with its
// capabilities.
std::string PegasusRegistrations(const Schema& schema, const std::string& version);

}  // namespace mof
