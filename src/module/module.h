// The module's registrations: one per provider, in one chain whose head cimple_module returns.
#pragma once

#include <framework/Registration.h>
#include <module/provider_list.h>

#include <cstddef>

enum class ProviderIndex : std::size_t {
#define BMCI2C_INDEX(X) X,
    BMCI2C_PROVIDERS(BMCI2C_INDEX, BMCI2C_INDEX)
#undef BMCI2C_INDEX
        Count
};

// The registration of a provider; valid for the life of the module.
const cimple::Registration& RegistrationOf(ProviderIndex provider);

// The head of the chain: the registration of QUVSG_BMCI2C_UseOfLog. The chain runs in reverse
// alphabetical order.
extern "C" __attribute__((visibility("default"))) const cimple::Registration* cimple_module();
