#include <cli/ErrorOutput.h>
#include <cli/Printable.h>

#include <iostream>

namespace cli {

std::string ErrorLine(const std::string& message) { return "bmci2c: " + Printable(message) + "\n"; }

void PrintError(const std::string& message) {
    // In one piece: other threads write there, too.
    std::cerr << ErrorLine(message);
}

}  // namespace cli
