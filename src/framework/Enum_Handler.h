// What the handlers of all enumerations have in common.
#pragma once

#include <framework/Instance.h>

namespace cimple {

// Takes one instance of an enumeration, which becomes the callback's own, or null and the status
// with which the enumeration ended.
using Enum_Callback = void (*)(Instance* instance, int status, void* clientData);

template <class T>
class Enum_Handler {
public:
    Enum_Handler(Enum_Callback enumCallback, void* callbackData)
        : callback(enumCallback), clientData(callbackData) {}

    // Delivers an instance; the caller's count of it passes to the framework.
    void handle(T* instance) { callback(instance, 0, clientData); }

private:
    Enum_Callback callback;
    void* clientData;
};

}  // namespace cimple
