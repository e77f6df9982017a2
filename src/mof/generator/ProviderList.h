// The module's list of providers in C++: registrations, dispatch procedures and factories are all
// made from it.
#pragma once

#include <mof/Model.h>

#include <string>

namespace mof {

// A header with the macro BMCI2C_PROVIDERS(PLAIN, ASSOCIATION): PLAIN(X) for each class
// QUVSG_BMCI2C_X, ASSOCIATION(X) for each association class, alphabetical by class name.
std::string ProviderList(const Schema& schema);

// A header that includes <providers/X_Provider.h> of each.
std::string ProviderHeaders(const Schema& schema);

}  // namespace mof
