#include "Adapter_Fixture.h"

namespace {

template <class Interface>
Interface* interface_of(void* block, const cimple::Registration& registration,
                        const CMPIBroker& broker, char kind) {
    void* result = nullptr;
    cimple::cmpi_adapter(cimple::kAdapterMark, block, &registration, &broker, nullptr,
                         registration.provider_name, kind, &result);
    return static_cast<Interface*>(result);
}

}  // namespace

Adapted_Provider::Adapted_Provider(const cimple::Registration& registration,
                                   const CMPIBroker& broker)
    : instances(interface_of<CMPIInstanceMI>(block, registration, broker, 'I')),
      methods(interface_of<CMPIMethodMI>(block, registration, broker, 'M')),
      associations(interface_of<CMPIAssociationMI>(block, registration, broker, 'A')) {}

Adapter_Fixture::Adapter_Fixture() {
    fanScript = {};
    coolsScript = {};
}

Adapter_Fixture::~Adapter_Fixture() {
    fanScript = {};
    fans.instances->ft->cleanup(fans.instances, &context, 1);
    cools.instances->ft->cleanup(cools.instances, &context, 1);
    EXPECT_EQ(cimple::instance_count(), instancesBefore);
}

fake::Path* Adapter_Fixture::fan_path() {
    return class_path("ACME_Fan")
        ->with_key("Id", broker.arena.string_data("a"))
        ->with_key("Slot", fake::integer_data(CMPI_uint8, 3));
}

fake::Path* Adapter_Fixture::class_path(const char* className) {
    return broker.arena.path("root/acme", className);
}

CMPIStatus Adapter_Fixture::enumerate_fans(const char** properties) {
    return fans.instances->ft->enumerateInstances(fans.instances, &context, &result,
                                                  class_path("ACME_Fan"), properties);
}

CMPIStatus Adapter_Fixture::invoke(const char* method, fake::Args* in) {
    return fans.methods->ft->invokeMethod(fans.methods, &context, &result, fan_path(), method, in,
                                          out);
}

ACME_Fan* make_fan(const char* id, std::uint8_t slot) {
    auto* fan = cimple::create<ACME_Fan>();
    fan->Id = id;
    fan->Slot = slot;
    return fan;
}

std::string to_text(const CMPIStatus& status) {
    std::string text = std::to_string(status.rc);
    if (status.msg != nullptr) text += ": " + static_cast<fake::Text*>(status.msg)->text;
    return text;
}
