#include <cimxml/operations/Answers.h>
#include <cimxml/operations/ObjectDetail.h>

namespace cimxml {

using host::AssociationQuery;
using host::ObjectPath;

namespace {

ObjectPath ClassPath(const Call& call) {
    return Located(call.nameSpace, {{}, call.parameters.RequiredClass("ClassName"), {}});
}

}  // namespace

AssociationQuery AssociatorQuery(const Call& call, const ObjectPath& source) {
    return {.source = Located(call.nameSpace, source),
            .associationClass = call.parameters.Class("AssocClass"),
            .resultClass = call.parameters.Class("ResultClass"),
            .role = call.parameters.Filter("Role"),
            .resultRole = call.parameters.Filter("ResultRole")};
}

AssociationQuery ReferenceQuery(const Call& call, const ObjectPath& source) {
    return {.source = Located(call.nameSpace, source),
            .associationClass = call.parameters.Class("ResultClass"),
            .role = call.parameters.Filter("Role")};
}

void ForEachInstance(const Call& call, const TakeInstance& take) {
    const ObjectPath classPath = ClassPath(call);
    const ObjectDetail detail(call.parameters);
    const host::ClassInfo* const exposed = call.parameters.Flag("DeepInheritance", true)
                                               ? nullptr
                                               : call.nameSpace.Classes().Find(classPath.className);
    const auto answer =
        Checked(call.nameSpace.EnumerateInstances(classPath, detail.Get().properties));
    for (const host::Instance& instance : answer.instances) take(instance, detail.Get(), exposed);
}

void ForEachInstanceName(const Call& call, const TakeName& take) {
    const auto answer = Checked(call.nameSpace.EnumerateInstanceNames(ClassPath(call)));
    for (const ObjectPath& name : answer.names) take(name);
}

void ForEachAssociator(const Call& call, const ObjectPath& source, const TakeInstance& take) {
    const ObjectDetail detail(call.parameters);
    const auto answer =
        Checked(call.nameSpace.Associators(AssociatorQuery(call, source), detail.Get().properties));
    for (const host::Instance& instance : answer.instances) take(instance, detail.Get(), nullptr);
}

void ForEachAssociatorName(const Call& call, const ObjectPath& source, const TakeName& take) {
    const auto answer = Checked(call.nameSpace.AssociatorNames(AssociatorQuery(call, source)));
    for (const ObjectPath& name : answer.names) take(name);
}

void ForEachReference(const Call& call, const ObjectPath& source, const TakeInstance& take) {
    const ObjectDetail detail(call.parameters);
    const auto answer =
        Checked(call.nameSpace.References(ReferenceQuery(call, source), detail.Get().properties));
    for (const host::Instance& instance : answer.instances) take(instance, detail.Get(), nullptr);
}

void ForEachReferenceName(const Call& call, const ObjectPath& source, const TakeName& take) {
    const auto answer = Checked(call.nameSpace.ReferenceNames(ReferenceQuery(call, source)));
    for (const ObjectPath& name : answer.names) take(name);
}

}  // namespace cimxml
