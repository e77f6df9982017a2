// Results of requests, object by object. Several operations return the same objects in different
// forms.
#pragma once

#include <cimxml/codec/ClassWriter.h>
#include <cimxml/operations/Call.h>

#include <functional>

namespace cimxml {

// Takes an instance, the properties that the client wants of it, and the class whose properties
// alone are wanted (null: those of the instance's own class).
using TakeInstance = std::function<void(const host::Instance& instance, const Detail& detail,
                                        const host::ClassInfo* exposed)>;
using TakeName = std::function<void(const host::ObjectPath& name)>;

// What the parameters of Associators and of References ask about the source, an instance or class.
host::AssociationQuery AssociatorQuery(const Call& call, const host::ObjectPath& source);
host::AssociationQuery ReferenceQuery(const Call& call, const host::ObjectPath& source);

// Each reads the parameters of its operation from the call and throws host::Failure. `source` is
// the instance as the client names it.
void ForEachInstance(const Call& call, const TakeInstance& take);
void ForEachInstanceName(const Call& call, const TakeName& take);
void ForEachAssociator(const Call& call, const host::ObjectPath& source, const TakeInstance& take);
void ForEachAssociatorName(const Call& call, const host::ObjectPath& source, const TakeName& take);
void ForEachReference(const Call& call, const host::ObjectPath& source, const TakeInstance& take);
void ForEachReferenceName(const Call& call, const host::ObjectPath& source, const TakeName& take);

}  // namespace cimxml
