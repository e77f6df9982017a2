// Turns instances into the CIM server's object paths and instances.
#pragma once

#include <cmpi/cmpi.h>
#include <framework/Instance.h>

#include <string>

namespace cimple {

// The properties that a client wants, as CMPI passes them: null for all of them.
using Property_List = const char**;

class Instance_Writer {
public:
    // An instance without a namespace of its own is given that of the request.
    Instance_Writer(const CMPIBroker& serverBroker, std::string requestNameSpace);

    // The complete path with every key that has a value.
    CMPIObjectPath* path_of(const Instance& instance) const;

    // The instance with its keys and the wanted properties. Properties without a value are set to
    // NULL explicitly: servers otherwise fill in the class's default values.
    CMPIInstance* instance_of(const Instance& instance, Property_List properties) const;

    // A value that is not null.
    CMPIValue value_of(const Instance& instance, const Meta_Feature& feature) const;

private:
    const CMPIBroker& broker;
    std::string nameSpace;
};

}  // namespace cimple
