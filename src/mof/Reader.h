// Reads MOF: qualifier declarations, classes, and `#pragma include ("file")`.
#pragma once

#include <mof/Model.h>

#include <stdexcept>
#include <string>

namespace mof {

// An error in a MOF text; what() reads "file:line:column: message".
class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Reads a file and every file that it includes (paths relative to the including file). A class must
// follow its superclass and every class that its references name. Throws Error.
Schema ReadFile(const std::string& path);

// The same for a text; `name` stands for the file's name in errors, and includes are refused.
Schema ReadText(const std::string& text, const std::string& name);

}  // namespace mof
