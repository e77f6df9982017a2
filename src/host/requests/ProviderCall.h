// One call into a provider: the context and result that it gets, and the arena of all objects that
// are made meanwhile. The arena is the thread's current one from construction to destruction.
#pragma once

#include <cmpi/cmpi.h>
#include <host/Status.h>
#include <host/Value.h>
#include <host/objects/Arena.h>
#include <host/schema/ClassRepository.h>

#include <functional>
#include <string>
#include <vector>

namespace host {

// The entries of a request's context.
using ContextEntries = std::vector<NamedValue>;

// The properties that a request asks for; null for all.
using PropertyList = const std::vector<std::string>*;

// The context of a client's request in a namespace.
ContextEntries ClientContext(const std::string& nameSpace);

class ProviderCall {
public:
    // `accepted`: what the provider may return (CMPI_instance, CMPI_ref; CMPI_null: any data).
    ProviderCall(const ClassRepository& classes, const ContextEntries& context,
                 std::string provider, CMPIType accepted);

    const CMPIContext* Context() const { return context; }
    const CMPIResult* Result() const { return result; }

    // Makes the call. Throws Failure when the provider answers an error or throws an exception.
    void Run(const std::function<CMPIStatus()>& call) const;

    // What the provider returned.
    std::vector<Value>& Values() const;

    // The same as objects of one kind. A path without a namespace gets the request's.
    std::vector<Instance> Instances(const std::string& nameSpace) const;
    std::vector<ObjectPath> Paths(const std::string& nameSpace) const;

private:
    const std::string provider;
    Arena arena;
    const Arena::Scope scope;
    CMPIContext* const context;
    CMPIResult* const result;
};

// A function of an interface's table. Throws Failure when the provider left it out.
template <class Function>
Function* Implemented(Function* function) {
    if (!function)
        throw Failure(CMPI_RC_ERR_NOT_SUPPORTED, "The provider does not implement the operation.");
    return function;
}

// A list of names as a C array that ends with a null pointer; null stands for no list.
class NameList {
public:
    explicit NameList(PropertyList names);

    const char** Get() { return pointers.empty() ? nullptr : pointers.data(); }

private:
    std::vector<const char*> pointers;
};

}  // namespace host
