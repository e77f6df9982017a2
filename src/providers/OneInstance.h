// The enumeration of a class that has exactly one instance.
#pragma once

#include <debug/Debug.h>
#include <framework/Enum_Instances_Handler.h>
#include <framework/Status.h>
#include <providers/EnumerationTrace.h>

#include <string_view>

struct OneInstanceTrace {
    std::string_view provider;
    std::string_view outcome;  // the end of the closing line
    bool printed = false;      // whether the instance is printed before it is delivered
};

// Builds the instance and delivers it, between the opening and the closing trace line.
template <class Class, class Build>
int EnumerateOne(const OneInstanceTrace& trace, cimple::Enum_Instances_Handler<Class>* handler,
                 Build build) {
    TraceEntry(trace.provider);
    Class* instance = build();
    if (trace.printed) xprint(instance);
    handler->handle(instance);
    TraceExit(trace.provider, trace.outcome);
    return cimple::STATUS_OK;
}
