#include <cimxml/codec/InstanceWriter.h>
#include <cimxml/codec/ValueWriter.h>
#include <cimxml/operations/Answers.h>
#include <cimxml/operations/AssociationOperations.h>
#include <cimxml/operations/ObjectDetail.h>
#include <host/requests/AssociatedClasses.h>

namespace cimxml {

namespace {

using Object = Parameters::Object;
using Classes = std::vector<const host::ClassInfo*>;
using host::AssociatedClasses;
using host::ReferringClasses;

Object Source(const Call& call) { return call.parameters.RequiredObject("ObjectName"); }

host::ObjectPath PathOf(const Call& call, const host::ClassInfo& cls) {
    return {call.nameSpace.name, cls.Name(), {}};
}

void WriteClasses(const Call& call, const Classes& classes) {
    const ObjectDetail detail(call.parameters);
    for (const host::ClassInfo* const cls : classes) {
        const auto element = call.xml.Open("VALUE.OBJECTWITHPATH");
        WriteClassPath(call.xml, PathOf(call, *cls), call.hostName);
        WriteClass(call.xml, call.nameSpace.Classes().Schema(), *cls, detail.Get());
    }
}

void WriteClassNames(const Call& call, const Classes& classes) {
    for (const host::ClassInfo* const cls : classes) {
        const auto element = call.xml.Open("OBJECTPATH");
        WriteClassPath(call.xml, PathOf(call, *cls), call.hostName);
    }
}

TakeInstance WriteWithPath(const Call& call) {
    return [&call](const host::Instance& instance, const Detail& detail, const host::ClassInfo*) {
        const auto element = call.xml.Open("VALUE.OBJECTWITHPATH");
        WriteInstancePath(call.xml, instance.path, call.hostName);
        WriteInstance(call.xml, call.nameSpace.Classes(), instance, detail);
    };
}

TakeName WritePath(const Call& call) {
    return [&call](const host::ObjectPath& name) {
        const auto element = call.xml.Open("OBJECTPATH");
        WriteInstancePath(call.xml, name, call.hostName);
    };
}

}  // namespace

void Associators(const Call& call) {
    const Object source = Source(call);
    if (source.isClass)
        WriteClasses(
            call, AssociatedClasses(call.nameSpace.Classes(), AssociatorQuery(call, source.path)));
    else
        ForEachAssociator(call, source.path, WriteWithPath(call));
}

void AssociatorNames(const Call& call) {
    const Object source = Source(call);
    if (source.isClass)
        WriteClassNames(
            call, AssociatedClasses(call.nameSpace.Classes(), AssociatorQuery(call, source.path)));
    else
        ForEachAssociatorName(call, source.path, WritePath(call));
}

void References(const Call& call) {
    const Object source = Source(call);
    if (source.isClass)
        WriteClasses(call,
                     ReferringClasses(call.nameSpace.Classes(), ReferenceQuery(call, source.path)));
    else
        ForEachReference(call, source.path, WriteWithPath(call));
}

void ReferenceNames(const Call& call) {
    const Object source = Source(call);
    if (source.isClass)
        WriteClassNames(
            call, ReferringClasses(call.nameSpace.Classes(), ReferenceQuery(call, source.path)));
    else
        ForEachReferenceName(call, source.path, WritePath(call));
}

}  // namespace cimxml
