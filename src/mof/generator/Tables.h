// The source file with the tables of all generated classes.
#pragma once

#include <mof/Model.h>

#include <string>

namespace mof {

// The text of schema/Tables.cpp: the Meta_Class of each class and of each method, and the
// repository that holds the classes. All of it is initialised by the compiler.
std::string Tables(const Schema& schema);

}  // namespace mof
