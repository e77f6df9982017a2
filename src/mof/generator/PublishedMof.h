// The module's classes for servers that bring the published CIM classes into every namespace, where
// a base class must not be declared again.
#pragma once

#include <mof/Model.h>

#include <string>

namespace mof {

// The module's classes alone. A class whose published base has other keys than ours derives from
// the nearest ancestor without keys and declares everything else itself: MOF lets no subclass drop
// a key, or add one to those that it inherits, and a key that stays NULL breaks servers and their
// clients. Every class must have the Description qualifier.
std::string PublishedMof(const Schema& schema);

}  // namespace mof
