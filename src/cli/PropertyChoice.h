// Which properties of instances are shown.
#pragma once

#include <host/Value.h>
#include <mof/Model.h>

#include <string>
#include <vector>

namespace cli {

// Throws UsageError when neither the class nor one of its subclasses has a property of that name,
// in any letter case. A class that the schema lacks is not looked at.
void RequireProperties(const mof::Schema& schema, const std::string& className,
                       const std::vector<std::string>& names);

// Removes the properties that are not named; none when no name is given.
void KeepOnly(const std::vector<std::string>& names, host::Instance& instance);

}  // namespace cli
