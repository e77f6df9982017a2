// Operations on classes and qualifier declarations.
#pragma once

#include <cimxml/operations/Call.h>

namespace cimxml {

void EnumerateClasses(const Call& call);
void EnumerateClassNames(const Call& call);
void GetClass(const Call& call);
void EnumerateQualifiers(const Call& call);
void GetQualifier(const Call& call);

}  // namespace cimxml
