// The registration file of the module's providers, in the format that sfcb reads.
#pragma once

#include <mof/Model.h>

#include <string>

namespace mof {

// One stanza for each class of the module: which provider serves it, how, and where.
std::string Registrations(const Schema& schema);

}  // namespace mof
