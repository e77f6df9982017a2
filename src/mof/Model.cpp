#include <mof/Model.h>
#include <mof/Names.h>

#include <algorithm>

namespace mof {

namespace {

// The class and its superclasses, root first.
std::vector<const Class*> Lineage(const Schema& schema, const Class& cls) {
    std::vector<const Class*> lineage;
    for (const Class* ancestor = &cls; ancestor != nullptr;
         ancestor = schema.Find(ancestor->superClass)) {
        lineage.push_back(ancestor);
    }
    std::reverse(lineage.begin(), lineage.end());
    return lineage;
}

template <class Member>
std::vector<Inherited<Member>> AllMembers(const std::vector<const Class*>& lineage,
                                          std::vector<Member> Class::*members) {
    std::vector<Inherited<Member>> all;
    for (const Class* declarer : lineage) {
        for (const Member& member : declarer->*members) {
            const auto overridden = std::find_if(all.begin(), all.end(), [&](const auto& known) {
                return SameName(known.member->name, member.name);
            });
            if (overridden == all.end()) {
                all.push_back({&member, declarer, declarer});
            } else {
                overridden->member = &member;
                overridden->declarer = declarer;
            }
        }
    }
    return all;
}

template <class Named>
const Named* FindByName(const std::vector<Named>& all, const std::string& name) {
    const auto found = std::find_if(all.begin(), all.end(), [&](const Named& candidate) {
        return SameName(candidate.name, name);
    });
    return found == all.end() ? nullptr : &*found;
}

bool IsTrue(const Qualifier& qualifier) {
    const auto* scalar = std::get_if<Scalar>(&qualifier.value);
    if (scalar == nullptr) {
        return false;
    }
    const auto* flag = std::get_if<bool>(scalar);
    return flag != nullptr ? *flag : std::holds_alternative<std::monostate>(*scalar);
}

}  // namespace

const Class* Schema::Find(const std::string& className) const {
    return FindByName(classes, className);
}

std::vector<Inherited<Property>> AllProperties(const Schema& schema, const Class& cls) {
    return AllMembers(Lineage(schema, cls), &Class::properties);
}

std::vector<Inherited<Method>> AllMethods(const Schema& schema, const Class& cls) {
    return AllMembers(Lineage(schema, cls), &Class::methods);
}

const Qualifier* FindQualifier(const std::vector<Qualifier>& qualifiers, const std::string& name) {
    return FindByName(qualifiers, name);
}

bool HasFlag(const std::vector<Qualifier>& qualifiers, const std::string& name) {
    const Qualifier* qualifier = FindQualifier(qualifiers, name);
    return qualifier != nullptr && IsTrue(*qualifier);
}

bool IsKey(const Schema& schema, const Class& cls, const std::string& propertyName) {
    const auto lineage = Lineage(schema, cls);
    return std::any_of(lineage.begin(), lineage.end(), [&](const Class* ancestor) {
        const Property* property = FindByName(ancestor->properties, propertyName);
        return property != nullptr && HasFlag(property->qualifiers, "Key");
    });
}

bool IsAssociation(const Schema& schema, const Class& cls) {
    const auto lineage = Lineage(schema, cls);
    return std::any_of(lineage.begin(), lineage.end(), [](const Class* ancestor) {
        return HasFlag(ancestor->qualifiers, "Association");
    });
}

bool IsIn(const Parameter& parameter) {
    return FindQualifier(parameter.qualifiers, "In") == nullptr ||
           HasFlag(parameter.qualifiers, "In");
}

bool IsOut(const Parameter& parameter) { return HasFlag(parameter.qualifiers, "Out"); }

bool IsSubclass(const Schema& schema, const std::string& ancestor, const std::string& className) {
    for (const Class* cls = schema.Find(className); cls != nullptr;
         cls = schema.Find(cls->superClass)) {
        if (SameName(cls->name, ancestor)) {
            return true;
        }
    }
    return false;
}

}  // namespace mof
