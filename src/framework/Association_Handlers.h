// Where an association provider delivers what it enumerates. The types differ only so that one
// operation's handler cannot be passed for another's.
#pragma once

#include <framework/Enum_Handler.h>

namespace cimple {

// Takes the instances at the other end; the client gets their object paths.
template <class T>
class Enum_Associator_Names_Handler : public Enum_Handler<T> {
public:
    using Enum_Handler<T>::Enum_Handler;
};

// Takes the instances at the other end.
template <class T>
class Enum_Associators_Handler : public Enum_Handler<T> {
public:
    using Enum_Handler<T>::Enum_Handler;
};

// Takes association instances.
template <class T>
class Enum_References_Handler : public Enum_Handler<T> {
public:
    using Enum_Handler<T>::Enum_Handler;
};

}  // namespace cimple
