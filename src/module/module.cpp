#include <framework/version.h>
#include <module/all_providers.h>
#include <module/dispatch_procedures.h>
#include <module/module.h>

namespace {

using cimple::Registration;

constexpr char kModuleName[] = "QUVSG_BMCI2C_DiagnosticService_Module";
constexpr auto kCount = static_cast<std::size_t>(ProviderIndex::Count);

extern const Registration registrations[kCount];

// Each registration is followed by the one of the class before it in the alphabet.
constexpr const Registration* Next(ProviderIndex provider) {
    const auto index = static_cast<std::size_t>(provider);
    return index == 0 ? nullptr : &registrations[index - 1];
}

#define BMCI2C_REGISTRATION(X)                                                               \
    {kModuleName, "QUVSG_BMCI2C_" #X "_Provider", __cimple_QUVSG_BMCI2C_##X##_Provider_proc, \
     &QUVSG_BMCI2C_##X::static_meta_class, Next(ProviderIndex::X)},

constinit const Registration registrations[kCount] = {
    BMCI2C_PROVIDERS(BMCI2C_REGISTRATION, BMCI2C_REGISTRATION)};

#undef BMCI2C_REGISTRATION

// Binds the module to the framework version that it was written against; nothing reads it.
[[gnu::used]] const int versionAnchor = cimple::__cimple_version_1_2_0;

}  // namespace

const Registration& RegistrationOf(ProviderIndex provider) {
    return registrations[static_cast<std::size_t>(provider)];
}

extern "C" const Registration* cimple_module() { return &registrations[kCount - 1]; }
