#pragma once

#include <cmpi/types.h>

namespace cimxml {

constexpr CMPIType ArrayOf(CMPIType type) { return static_cast<CMPIType>(CMPI_ARRAY | type); }

}  // namespace cimxml
