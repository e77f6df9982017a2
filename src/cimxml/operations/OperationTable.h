// The intrinsic operations that this server has.
#pragma once

#include <cimxml/operations/Call.h>

#include <string>
#include <string_view>

namespace cimxml {

struct Operation {
    std::string_view name;
    ParameterNames parameters;
    void (*carryOut)(const Call&);
    bool returnsValue = true;
};

// The operation of that name, in any letter case. Throws host::Failure when there is none.
const Operation& OperationNamed(const std::string& name);

}  // namespace cimxml
