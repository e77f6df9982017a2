// Takes the instances of an enumeration and hands them to the client.
#pragma once

#include <cmpi/cmpi.h>
#include <framework/Enum_Handler.h>
#include <framework/adapter/Instance_Writer.h>

#include <exception>

namespace cimple {

// Tells the client that the result is complete.
void end_result(const CMPIResult* result);

class Delivery {
public:
    enum class Form { instances, paths };

    Delivery(const Instance_Writer& instanceWriter, const CMPIResult* clientResult, Form resultForm,
             Property_List wantedProperties = nullptr)
        : writer(instanceWriter),
          result(clientResult),
          form(resultForm),
          properties(wantedProperties) {}

    // The callback of a provider's enumeration handler; its client data is the Delivery. Nothing is
    // thrown through the provider: after a failure further instances are dropped.
    static void take(Instance* instance, int status, void* delivery) noexcept;

    // Throws what went wrong during the delivery, if anything did.
    void check() const;

    // Hands over one instance, as an instance or as its path.
    void put(const Instance& instance) const;

private:
    const Instance_Writer& writer;
    const CMPIResult* result;
    Form form;
    Property_List properties;
    std::exception_ptr failure;
};

}  // namespace cimple
