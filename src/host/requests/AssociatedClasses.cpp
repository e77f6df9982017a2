#include <host/requests/AssociatedClasses.h>

#include <algorithm>

namespace host {

namespace {

// The class of the other end, narrowed to the result class; null when they have nothing in common.
const ClassInfo* OtherEnd(const ClassRepository& classes, const PropertyInfo& reference,
                          const AssociationQuery& query) {
    if (reference.type != CMPI_ref || !Admits(query.resultRole, reference.name)) return nullptr;
    const ClassInfo* const declared = classes.Find(reference.referenceClass);
    if (!declared || query.resultClass.empty() || declared->IsA(query.resultClass)) return declared;
    const ClassInfo* const wanted = classes.Find(query.resultClass);
    return wanted->IsA(declared->Name()) ? wanted : nullptr;
}

void AddNew(std::vector<const ClassInfo*>& all, const ClassInfo* cls) {
    if (cls && std::find(all.begin(), all.end(), cls) == all.end()) all.push_back(cls);
}

}  // namespace

std::vector<const ClassInfo*> ReferringClasses(const ClassRepository& classes,
                                               const AssociationQuery& query) {
    RequireFilterClasses(classes, query);
    const ClassInfo& source = *classes.Find(query.source.className);
    std::vector<const ClassInfo*> found;
    for (const mof::Class& declared : classes.Schema().classes) {
        const ClassInfo* const cls = classes.Find(declared.name);
        const auto& ends = cls->properties;
        const bool isAsked = query.associationClass.empty() || cls->IsA(query.associationClass);
        if (cls->isAssociation && isAsked &&
            std::any_of(ends.begin(), ends.end(),
                        [&](const PropertyInfo& end) { return CanHold(end, source, query.role); }))
            found.push_back(cls);
    }
    return found;
}

std::vector<const ClassInfo*> AssociatedClasses(const ClassRepository& classes,
                                                const AssociationQuery& query) {
    const std::vector<const ClassInfo*> associations = ReferringClasses(classes, query);
    const ClassInfo& source = *classes.Find(query.source.className);
    std::vector<const ClassInfo*> found;
    for (const ClassInfo* const association : associations)
        for (const PropertyInfo& end : association->properties) {
            if (!CanHold(end, source, query.role)) continue;
            for (const PropertyInfo& other : association->properties)
                if (&other != &end) AddNew(found, OtherEnd(classes, other, query));
        }
    return found;
}

}  // namespace host
