#include <debug/TraceSink.h>

void LogMessage(const char* /*text*/) {}
