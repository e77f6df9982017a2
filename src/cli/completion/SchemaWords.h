// Names of the schema that complete a command line.
#pragma once

#include <host/Host.h>

#include <string>
#include <vector>

namespace cli {

// Reads the files when it is asked; the module is not loaded. A file that cannot be read gives no
// names.
class SchemaWords {
public:
    explicit SchemaWords(host::HostFiles itsFiles);

    // The registered classes.
    std::vector<std::string> Classes() const;

    // Inherited ones, too.
    std::vector<std::string> Methods(const std::string& className) const;
    std::vector<std::string> Properties(const std::string& className) const;

private:
    host::HostFiles files;
};

}  // namespace cli
