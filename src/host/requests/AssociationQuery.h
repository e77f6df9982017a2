// What a client asks about an object's associations, and which classes and links can answer.
#pragma once

#include <host/Value.h>
#include <host/requests/Router.h>

#include <string>
#include <vector>

namespace host {

// Empty texts do not restrict.
struct AssociationQuery {
    ObjectPath source;
    std::string associationClass = {};  // with the classes that derive from it
    std::string resultClass = {};       // of the other end, likewise
    std::string role = {};              // the reference that holds the source
    std::string resultRole = {};        // the reference that holds the other end
};

// True when the filter is empty or the name, in any letter case.
bool Admits(const std::string& filter, const std::string& name);

// True when the property is a reference that can hold instances of the source and has that role.
bool CanHold(const PropertyInfo& end, const ClassInfo& source, const std::string& role);

// Throws Failure for an unknown association or result class.
void RequireFilterClasses(const ClassRepository& classes, const AssociationQuery& query);

// The registered association classes whose references can hold the source and such another end.
// Throws Failure for an unknown namespace or class.
std::vector<Target> AssociationTargets(const Router& router, const AssociationQuery& query);

// True when the link, an instance of the association class, holds the source in the wanted role.
bool Holds(const Instance& link, const AssociationQuery& query);

// The other ends of such a link that the query asks for.
std::vector<ObjectPath> OtherEnds(const ClassRepository& classes, const Instance& link,
                                  const AssociationQuery& query);

}  // namespace host
