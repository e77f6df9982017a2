// Parses the command line and runs the command.
#pragma once

namespace cli {

// Returns the exit code; errors go to standard error.
int Main(int argc, const char* const* argv);

}  // namespace cli
