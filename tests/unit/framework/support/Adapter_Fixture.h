// Drives the test providers through the adapter as a CIM server does.
#pragma once

#include <framework/adapter/cmpi_adapter.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "Fake_Broker.h"
#include "Providers.h"

// The interfaces of one provider, on a static data block of its own.
class Adapted_Provider {
    alignas(std::max_align_t) unsigned char block[cimple::kStaticDataSize] = {};

public:
    Adapted_Provider(const cimple::Registration& registration, const CMPIBroker& broker);

    CMPIInstanceMI* instances = nullptr;
    CMPIMethodMI* methods = nullptr;
    CMPIAssociationMI* associations = nullptr;
};

// Every test begins with new provider objects and ends without an instance left.
class Adapter_Fixture : public testing::Test {
protected:
    Adapter_Fixture();
    ~Adapter_Fixture() override;

    // The path of the fan "a" in slot 3.
    fake::Path* fan_path();
    fake::Path* class_path(const char* className);

    CMPIStatus enumerate_fans(const char** properties = nullptr);
    CMPIStatus invoke(const char* method, fake::Args* in = nullptr);

    std::uint64_t instancesBefore = cimple::instance_count();
    fake::Broker broker;
    CMPIContext context{};
    fake::Result result;
    fake::Args* out = broker.arena.args();
    Adapted_Provider fans{fanRegistration, broker};
    Adapted_Provider cools{coolsRegistration, broker};
};

// A fan with the keys Id and Slot.
ACME_Fan* make_fan(const char* id, std::uint8_t slot);

// Code and text of a status, as "7: text"; "0" for success.
std::string to_text(const CMPIStatus& status);
