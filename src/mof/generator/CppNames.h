// How names and types of MOF are written in the generated C++.
#pragma once

#include <mof/Model.h>

#include <string>

namespace mof {

// The enumerator of cimple::Type: "uint16".
std::string TypeEnumerator(DataType type);

// The C++ type of one value: "std::uint16_t"; empty for a reference.
std::string ElementType(DataType type);

// The type of the member that holds a property or parameter: "cimple::Property<std::uint16_t>" or
// "CIM_Job*".
std::string MemberType(const TypeName& type);

// The record class of a method's parameters: "CIM_Log_ClearLog_method".
std::string RecordName(const Inherited<Method>& method);

// The names of the arrays of features and methods of a class in the tables.
std::string FeatureTableName(const std::string& cppClass);
std::string MethodTableName(const std::string& cppClass);

}  // namespace mof
