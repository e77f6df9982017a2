// Advice for a class that does not exist or has no instances.
#pragma once

#include <host/Host.h>

#include <string>
#include <vector>

namespace cli {

// After a request for `className` that ended with `status`: which of the known classes was meant,
// in any letter case, with or without the prefix that all of the module's classes have. Empty when
// the class is not the cause, or none is near.
std::string ClassAdvice(const std::string& className, const host::Status& status,
                        const std::vector<std::string>& known);

// The classes that the module registers.
std::vector<std::string> RegisteredClasses(const host::Host& host);

// Why there is nothing to print: the records of a run exist only in its process.
std::string NoInstanceText(const std::string& className);

}  // namespace cli
