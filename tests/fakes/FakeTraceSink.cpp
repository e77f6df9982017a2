#include <debug/TraceSink.h>
#include <fakes/FakeTraceSink.h>

std::vector<std::string> FakeTraceSink::lines;

void LogMessage(const char* text) { FakeTraceSink::lines.emplace_back(text); }
