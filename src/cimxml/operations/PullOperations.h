// Operations that deliver objects piece by piece. The first piece of an enumeration comes with its
// opening; the rest waits in a session.
#pragma once

#include <cimxml/operations/Call.h>

namespace cimxml {

void OpenEnumerateInstances(const Call& call);
void OpenEnumerateInstancePaths(const Call& call);
void OpenAssociatorInstances(const Call& call);
void OpenAssociatorInstancePaths(const Call& call);
void OpenReferenceInstances(const Call& call);
void OpenReferenceInstancePaths(const Call& call);
void PullInstancesWithPath(const Call& call);
void PullInstancePaths(const Call& call);

// Pulls the results of queries, which this server does not support: no context is valid.
void PullInstances(const Call& call);

void CloseEnumeration(const Call& call);

}  // namespace cimxml
