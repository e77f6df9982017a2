// Advice if a method could not be invoked.
#pragma once

#include <host/Host.h>

#include <string>

namespace cli {

// After an invocation that ended with `status`: which methods the class has
// when the method was none of them, which one does something when this one does not, where the
// instances are when `target` names none of them, and which class was meant. Empty when none of
// these is the cause.
std::string InvokeAdvice(host::Host& host, const host::ObjectPath& target,
                         const host::Status& status);

}  // namespace cli
