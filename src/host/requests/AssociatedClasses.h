// Which classes the association classes of a schema tie to a class.
#pragma once

#include <host/requests/AssociationQuery.h>

#include <vector>

namespace host {

// Both follow a query whose source is a class that exists, and throw Failure for an unknown
// association or result class.

// The association classes with a reference that can hold instances of the source, in the order of
// the schema.
std::vector<const ClassInfo*> ReferringClasses(const ClassRepository& classes,
                                               const AssociationQuery& query);

// The classes that the other references of such association classes are declared with, each once.
// The result class stands for a class that it derives from.
std::vector<const ClassInfo*> AssociatedClasses(const ClassRepository& classes,
                                                const AssociationQuery& query);

}  // namespace host
