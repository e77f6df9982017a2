// The header of a generated class.
#pragma once

#include <mof/Model.h>

#include <string>

namespace mof {

// The text of schema/<Class>.h: the class, and the record classes of the methods that it declares.
std::string ClassHeader(const Schema& schema, const Class& cls);

// The text of schema/Repository.h, which declares the set of all classes.
std::string RepositoryHeader();

}  // namespace mof
