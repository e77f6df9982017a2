#include <cli/ErrorOutput.h>
#include <cli/Printable.h>

#include <iostream>

namespace cli {

void PrintError(const std::string& message) {
    // In one piece: other threads write there, too.
    std::cerr << "bmci2c: " + Printable(message) + "\n";
}

}  // namespace cli
