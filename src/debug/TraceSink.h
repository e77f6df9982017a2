// Where the providers' trace lines go.
#pragma once

// Takes one complete line, which ends in "\n", and discards it. A sink that writes can be put in
// its place at link time without touching a caller.
void LogMessage(const char* text);
