// Operations along associations.
#pragma once

#include <cimxml/operations/Call.h>

namespace cimxml {

void Associators(const Call& call);
void AssociatorNames(const Call& call);
void References(const Call& call);
void ReferenceNames(const Call& call);

}  // namespace cimxml
