// Reads the command line and carries the command out.
#pragma once

namespace cli {

// Returns the exit code; what is wrong goes to the standard error output.
int Main(int argc, const char* const* argv);

}  // namespace cli
