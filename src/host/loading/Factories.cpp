#include <host/loading/Factories.h>

namespace host {

namespace {

template <class Interface>
void CheckFactory(const Module& module, const Registration& registration) {
    using Kind = InterfaceKind<Interface>;
    if (!registration.HasType(Kind::kType)) return;
    if (FindFactory<Interface>(module, registration.provider)) return;
    throw LoadError("The provider module '" + module.Path() + "' has no function '" +
                    registration.provider + Kind::kSuffix +
                    "', which the registration of the class '" + registration.className +
                    "' demands.");
}

}  // namespace

void CheckFactories(const Module& module, const std::vector<Registration>& registrations) {
    for (const Registration& registration : registrations) {
        CheckFactory<CMPIInstanceMI>(module, registration);
        CheckFactory<CMPIMethodMI>(module, registration);
        CheckFactory<CMPIAssociationMI>(module, registration);
    }
}

}  // namespace host
