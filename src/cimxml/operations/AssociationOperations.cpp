#include <cimxml/codec/InstanceWriter.h>
#include <cimxml/codec/ValueWriter.h>
#include <cimxml/operations/AssociationOperations.h>
#include <cimxml/operations/ObjectDetail.h>
#include <host/Status.h>

namespace cimxml {

namespace {

using host::AssociationQuery;

host::ObjectPath Source(const Call& call) {
    const Parameters::Object object = call.parameters.RequiredObject("ObjectName");
    if (object.isClass)
        throw host::Failure(CMPI_RC_ERR_NOT_SUPPORTED,
                            "This server follows associations of instances, not of classes.");
    return Located(call.nameSpace, object.path);
}

AssociationQuery AssociatorQuery(const Call& call) {
    return {.source = Source(call),
            .associationClass = call.parameters.Class("AssocClass"),
            .resultClass = call.parameters.Class("ResultClass"),
            .role = call.parameters.Filter("Role"),
            .resultRole = call.parameters.Filter("ResultRole")};
}

AssociationQuery ReferenceQuery(const Call& call) {
    return {.source = Source(call),
            .associationClass = call.parameters.Class("ResultClass"),
            .role = call.parameters.Filter("Role")};
}

void WriteObjects(const Call& call, const std::vector<host::Instance>& instances,
                  const Detail& detail) {
    for (const host::Instance& instance : instances) {
        const auto element = call.xml.Open("VALUE.OBJECTWITHPATH");
        WriteInstancePath(call.xml, instance.path, call.hostName);
        WriteInstance(call.xml, call.nameSpace.Classes(), instance, detail);
    }
}

void WriteNames(const Call& call, const std::vector<host::ObjectPath>& names) {
    for (const host::ObjectPath& name : names) {
        const auto element = call.xml.Open("OBJECTPATH");
        WriteInstancePath(call.xml, name, call.hostName);
    }
}

}  // namespace

void Associators(const Call& call) {
    const ObjectDetail detail(call.parameters);
    const auto answer =
        Checked(call.nameSpace.Associators(AssociatorQuery(call), detail.Get().properties));
    WriteObjects(call, answer.instances, detail.Get());
}

void AssociatorNames(const Call& call) {
    WriteNames(call, Checked(call.nameSpace.AssociatorNames(AssociatorQuery(call))).names);
}

void References(const Call& call) {
    const ObjectDetail detail(call.parameters);
    const auto answer =
        Checked(call.nameSpace.References(ReferenceQuery(call), detail.Get().properties));
    WriteObjects(call, answer.instances, detail.Get());
}

void ReferenceNames(const Call& call) {
    WriteNames(call, Checked(call.nameSpace.ReferenceNames(ReferenceQuery(call))).names);
}

}  // namespace cimxml
