// Where a provider delivers the instances that it enumerates.
//
//     auto* instance = cimple::create<ACME_Fan>();
//     instance->Speed = 900;
//     handler->handle(instance);
#pragma once

#include <framework/Enum_Handler.h>

namespace cimple {

template <class T>
class Enum_Instances_Handler : public Enum_Handler<T> {
public:
    using Enum_Handler<T>::Enum_Handler;
};

}  // namespace cimple
