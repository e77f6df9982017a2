// The entries of the broker's tables that the host does not offer. It serves one module, which
// calls few of them; a null entry would crash a module that calls more.
#pragma once

#include <host/objects/Guard.h>

#include <type_traits>

namespace host {

// The status among the arguments of an entry; null if there is none.
template <class... Arguments>
CMPIStatus* StatusAmong(Arguments... arguments) {
    CMPIStatus* status = nullptr;
    const auto look = [&](auto argument) {
        if constexpr (std::is_same_v<decltype(argument), CMPIStatus*>) status = argument;
    };
    (look(arguments), ...);
    return status;
}

// Fits every entry: refuses in the status that it returns, or in the one that the caller handed in.
template <class Result, class... Arguments>
Result Refuse(Arguments... arguments) {
    const auto refuse = []() -> Result {
        throw Failure(CMPI_RC_ERR_NOT_SUPPORTED, "This host does not offer this function.");
    };
    if constexpr (std::is_same_v<Result, CMPIStatus>)
        return GuardStatus(refuse);
    else
        return Guard(StatusAmong(arguments...), refuse);
}

// The same for entries with a variable argument list.
template <class Result, class... Arguments>
Result RefuseAny(Arguments... arguments, ...) {
    return Refuse<Result>(arguments...);
}

}  // namespace host
