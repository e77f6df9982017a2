// Makes the CMPI interfaces of a provider, through which a CIM server drives it.
#pragma once

#include <cmpi/cmpi.h>
#include <framework/Registration.h>

#include <cstddef>

namespace cimple {

// The first argument of every call: a caller that was built against another adapter passes
// something else.
inline constexpr int kAdapterMark = 67;

// The size of a provider's static data block in bytes.
inline constexpr std::size_t kStaticDataSize = 2048;

// Stores the interface of the kind 'I' (CMPIInstanceMI), 'M' (CMPIMethodMI) or 'A'
// (CMPIAssociationMI) of a provider in `result` and returns 0. On a wrong mark or kind, or without
// a broker, a registration or static data, it stores nothing and returns another value.
//
// `staticData` is one block per provider: kStaticDataSize bytes, zero at first, aligned for any
// type. All interfaces of a provider share it, and with it one provider object, which is created
// and loaded before its first request. A provider with data members handles one request at a time,
// one without handles them in parallel. Everything passed must outlive the interfaces. A later
// broker replaces an earlier one.
int cmpi_adapter(int mark, void* staticData, const Registration* registration,
                 const CMPIBroker* broker, const CMPIContext* context, const char* providerName,
                 int kind, void** result);

}  // namespace cimple
