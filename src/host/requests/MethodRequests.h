// Method calls, answered by the method interfaces of providers.
#pragma once

#include <host/requests/ProviderCall.h>
#include <host/requests/ProviderTable.h>
#include <host/requests/Router.h>

#include <string>
#include <vector>

namespace host {

struct MethodAnswer {
    Value returnValue;  // NULL when the provider returned none
    std::vector<NamedValue> out;
};

class MethodRequests {
public:
    MethodRequests(const Router& requestRouter, ProviderTable& table)
        : router(requestRouter), providers(table) {}

    // Calls the method of an instance or class. Arguments of a method that the class has are typed
    // by it; other methods reach the provider untyped, which decides. Throws Failure.
    MethodAnswer Invoke(const ContextEntries& context, const ObjectPath& path,
                        const std::string& method, const std::vector<NamedValue>& arguments);

private:
    const Router& router;
    ProviderTable& providers;
};

}  // namespace host
