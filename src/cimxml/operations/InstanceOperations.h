// Operations on instances.
#pragma once

#include <cimxml/operations/Call.h>

namespace cimxml {

void EnumerateInstances(const Call& call);
void EnumerateInstanceNames(const Call& call);
void GetInstance(const Call& call);

}  // namespace cimxml
