// The status codes of CIM operations (DSP0200) that CMPI has no names for.
#pragma once

#include <cmpi/cmpi.h>

namespace cimxml {

inline constexpr auto kInvalidEnumerationContext = static_cast<CMPIrc>(21);
inline constexpr auto kInvalidOperationTimeout = static_cast<CMPIrc>(22);
inline constexpr auto kFilteredEnumerationNotSupported = static_cast<CMPIrc>(25);
inline constexpr auto kContinuationOnErrorNotSupported = static_cast<CMPIrc>(26);
inline constexpr auto kServerLimitsExceeded = static_cast<CMPIrc>(27);

// CIM has no codes above this one; CMPI has, for errors between provider and host.
inline constexpr int kLastCimStatus = 29;

}  // namespace cimxml
