#include <host/Status.h>
#include <host/requests/AssociationQuery.h>
#include <host/requests/PathMatch.h>
#include <mof/Names.h>

#include <algorithm>

namespace host {

namespace {

using Reference = std::shared_ptr<const ObjectPath>;

void RequireClass(const ClassRepository& classes, const std::string& name, const char* what) {
    if (!name.empty() && !classes.Find(name))
        throw Failure(CMPI_RC_ERR_INVALID_PARAMETER,
                      std::string("The ") + what + " class '" + name + "' does not exist.");
}

// True when objects of one of the classes can be objects of the other.
bool AreRelated(const ClassRepository& classes, const std::string& a, const std::string& b) {
    const ClassInfo* const classA = classes.Find(a);
    const ClassInfo* const classB = classes.Find(b);
    return (classA && classA->IsA(b)) || (classB && classB->IsA(a));
}

// True when the association class has a reference for the source and another one for the other end.
bool CanLink(const ClassRepository& classes, const ClassInfo& association, const ClassInfo& source,
             const AssociationQuery& query) {
    const auto holdsOther = [&](const PropertyInfo& end) {
        return end.type == CMPI_ref && Admits(query.resultRole, end.name) &&
               (query.resultClass.empty() ||
                AreRelated(classes, end.referenceClass, query.resultClass));
    };
    const auto& ends = association.properties;
    return std::any_of(ends.begin(), ends.end(), [&](const PropertyInfo& end) {
        return CanHold(end, source, query.role) &&
               std::any_of(ends.begin(), ends.end(), [&](const PropertyInfo& other) {
                   return &other != &end && holdsOther(other);
               });
    });
}

const ObjectPath* ReferenceOf(const NamedValue& property) {
    const auto* reference = std::get_if<Reference>(&property.value.data);
    return reference ? reference->get() : nullptr;
}

bool HoldsSource(const NamedValue& property, const AssociationQuery& query) {
    const ObjectPath* const path = ReferenceOf(property);
    return path && Admits(query.role, property.name) && SameObject(*path, query.source);
}

bool IsWanted(const ClassRepository& classes, const NamedValue& property,
              const AssociationQuery& query) {
    const ObjectPath* const path = ReferenceOf(property);
    if (!path || !Admits(query.resultRole, property.name)) return false;
    if (query.resultClass.empty()) return true;
    const ClassInfo* const cls = classes.Find(path->className);
    return cls && cls->IsA(query.resultClass);
}

}  // namespace

bool Admits(const std::string& filter, const std::string& name) {
    return filter.empty() || mof::SameName(filter, name);
}

bool CanHold(const PropertyInfo& end, const ClassInfo& source, const std::string& role) {
    return end.type == CMPI_ref && Admits(role, end.name) && source.IsA(end.referenceClass);
}

void RequireFilterClasses(const ClassRepository& classes, const AssociationQuery& query) {
    RequireClass(classes, query.associationClass, "association");
    RequireClass(classes, query.resultClass, "result");
}

std::vector<Target> AssociationTargets(const Router& router, const AssociationQuery& query) {
    const ClassRepository& classes = router.Classes();
    const ClassInfo& source = router.ClassOf(query.source);
    RequireFilterClasses(classes, query);
    std::vector<Target> targets = router.All(query.source.nameSpace);
    std::erase_if(targets, [&](const Target& target) {
        const bool isAsked =
            query.associationClass.empty() || target.cls->IsA(query.associationClass);
        return !target.cls->isAssociation || !isAsked ||
               !CanLink(classes, *target.cls, source, query);
    });
    return targets;
}

bool Holds(const Instance& link, const AssociationQuery& query) {
    return std::any_of(link.properties.begin(), link.properties.end(),
                       [&](const NamedValue& property) { return HoldsSource(property, query); });
}

std::vector<ObjectPath> OtherEnds(const ClassRepository& classes, const Instance& link,
                                  const AssociationQuery& query) {
    std::vector<ObjectPath> ends;
    for (const NamedValue& end : link.properties) {
        if (!HoldsSource(end, query)) continue;
        for (const NamedValue& other : link.properties)
            if (&other != &end && IsWanted(classes, other, query))
                ends.push_back(*ReferenceOf(other));
    }
    return ends;
}

}  // namespace host
