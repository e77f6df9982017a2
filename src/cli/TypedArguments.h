// Keys and arguments of a call, from the command line's NAME=VALUE in the types of the schema.
#pragma once

#include <host/Value.h>
#include <mof/Model.h>

#include <string>
#include <vector>

namespace cli {

// The values of options `--key K=V` for a class, under the names that the class declares. A class
// that the schema lacks takes them as texts, so that the host can say what is wrong. Throws
// UsageError, which names the option.
std::vector<host::NamedValue> TypedKeys(const mof::Schema& schema, const std::string& className,
                                        const std::vector<std::string>& options);

// The values of options `--in NAME=VALUE` for a method; an array takes one option for each of its
// elements. A class or method that the schema lacks takes them as texts. Throws UsageError.
std::vector<host::NamedValue> TypedArguments(const mof::Schema& schema,
                                             const std::string& className,
                                             const std::string& method,
                                             const std::vector<std::string>& options);

}  // namespace cli
