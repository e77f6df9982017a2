// Where the providers' trace lines go.
#pragma once

// Takes one complete line, which ends in "\n", and discards it. Another sink can replace it at link
// time.
void LogMessage(const char* text);
