// The three interfaces of a provider and the functions that make them.
#pragma once

#include <cmpi/cmpi.h>
#include <host/loading/Module.h>
#include <host/loading/Registration.h>

#include <string>
#include <vector>

namespace host {

// The host's view of an interface: its registration type, and the last part of its factory's name.
template <class Interface>
struct InterfaceKind;

template <>
struct InterfaceKind<CMPIInstanceMI> {
    static constexpr const char* kType = kInstanceType;
    static constexpr const char* kSuffix = "_Create_InstanceMI";
};

template <>
struct InterfaceKind<CMPIMethodMI> {
    static constexpr const char* kType = kMethodType;
    static constexpr const char* kSuffix = "_Create_MethodMI";
};

template <>
struct InterfaceKind<CMPIAssociationMI> {
    static constexpr const char* kType = kAssociationType;
    static constexpr const char* kSuffix = "_Create_AssociationMI";
};

template <class Interface>
using Factory = Interface* (*)(const CMPIBroker*, const CMPIContext*, CMPIStatus*);

// The factory of a provider's interface, or null.
template <class Interface>
Factory<Interface> FindFactory(const Module& module, const std::string& provider) {
    return reinterpret_cast<Factory<Interface>>(
        module.Find(provider + InterfaceKind<Interface>::kSuffix));
}

// Throws LoadError when the module lacks a factory that a registration promises.
void CheckFactories(const Module& module, const std::vector<Registration>& registrations);

}  // namespace host
