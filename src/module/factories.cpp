// The CMPI factories: one per provider and interface. Each hands its provider's registration and
// static data block to the framework's adapter, which does the work.
#include <cmpi/cmpi.h>
#include <framework/adapter/cmpi_adapter.h>
#include <framework/derived_associations.h>
#include <module/module.h>
#include <platform/settings/Settings.h>

#include <cstddef>

namespace {

bool AreAssociationsDerived() { return platform::CurrentSettings()->deriveAssociations.value; }

// The CMPI interface of the kind ('I', 'M' or 'A') that the adapter makes; null when it makes none.
template <class Interface>
Interface* Create(char kind, ProviderIndex provider, void* staticData, const CMPIBroker* broker,
                  const CMPIContext* context) {
    const cimple::Registration& registration = RegistrationOf(provider);
    cimple::derive_associations_if(&AreAssociationsDerived);
    void* result = nullptr;
    cimple::cmpi_adapter(cimple::kAdapterMark, staticData, &registration, broker, context,
                         registration.provider_name, kind, &result);
    return static_cast<Interface*>(result);
}

}  // namespace

#define BMCI2C_FACTORY(X, KIND, INTERFACE)                                                        \
    extern "C" __attribute__((visibility("default")))                                             \
    CMPI##INTERFACE* QUVSG_BMCI2C_##X##_Provider_Create_##INTERFACE(const CMPIBroker* broker,     \
                                                                    const CMPIContext* context) { \
        return Create<CMPI##INTERFACE>(KIND, ProviderIndex::X,                                    \
                                       _cmpi_static_dataQUVSG_BMCI2C_##X##_Provider, broker,      \
                                       context);                                                  \
    }

// The adapter's state of one provider, shared by its factories; the module never looks inside.
#define BMCI2C_PLAIN(X)                                                        \
    alignas(std::max_align_t) static char                                      \
        _cmpi_static_dataQUVSG_BMCI2C_##X##_Provider[cimple::kStaticDataSize]; \
    BMCI2C_FACTORY(X, 'I', InstanceMI)                                         \
    BMCI2C_FACTORY(X, 'M', MethodMI)

#define BMCI2C_ASSOCIATION(X) \
    BMCI2C_PLAIN(X)           \
    BMCI2C_FACTORY(X, 'A', AssociationMI)

BMCI2C_PROVIDERS(BMCI2C_PLAIN, BMCI2C_ASSOCIATION)
