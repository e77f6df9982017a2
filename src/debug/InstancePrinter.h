// Prints instances, line by line, to the trace sink.
#pragma once

#include <framework/Instance.h>

#include <cstdint>

namespace IO {

// Passes an indentation of level x 4 blanks and then the formatted message to the trace sink. Both
// are cut at 511 characters. Returns the full length of the formatted message.
int iprintf(unsigned long level, const char* format, ...) __attribute__((format(printf, 2, 3)));

// Prints an instance at a nesting level; `name` is that of the reference property through which it
// was reached, or null. `flags` (cimple::Feature_Flag) selects the kinds of features to print.
void _print_aux(const cimple::Instance* instance, const char* name, unsigned long level,
                std::uint32_t flags);

}  // namespace IO

// Prints an instance with its properties, and those that it references to a depth of three levels.
void xprint(const cimple::Instance* instance);
