// Where the files of this installation are, seen from the command's own program file. The build
// folder is laid out like an installation.
#pragma once

#include <host/Host.h>

#include <filesystem>
#include <string>

namespace cli {

// This program's file.
std::filesystem::path Executable();

// The module, schema and registrations beside the program in `binFolder`. `module`, when it is not
// empty, names another module, and BMCI2C_SCHEMA another folder with bmci2c.mof and bmci2c.reg. A
// file that does not exist gets the first path where it was looked for.
host::HostFiles FindFiles(const std::filesystem::path& binFolder, const std::string& module);

// The message catalog below a diagnostics root.
std::filesystem::path CatalogBelow(const std::filesystem::path& root);

}  // namespace cli
