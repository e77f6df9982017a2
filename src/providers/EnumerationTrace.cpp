#include <debug/Debug.h>
#include <providers/EnumerationTrace.h>

#include <string>

namespace {

void TraceEnumeration(std::string_view mark, std::string_view provider, std::string_view outcome) {
    std::string line(mark);
    line.append(provider).append("::enum_instances()").append(outcome).append("\n");
    LogMessage(line.c_str());
}

}  // namespace

void TraceEntry(std::string_view provider) { TraceEnumeration("+++", provider, ""); }

void TraceExit(std::string_view provider, std::string_view outcome) {
    TraceEnumeration("---", provider, outcome);
}
