// Names of the module and its files, for the module itself and for programs that look for it.
#pragma once

namespace base {

// The CIM namespace of all the module's classes.
inline constexpr char kNameSpace[] = "root/QUVSD";

// The module's file, and what registrations call it.
inline constexpr char kModuleFile[] = "libbmci2c.cmpi.so";
inline constexpr char kModuleLocation[] = "bmci2c.cmpi";

// The message catalog, below the diagnostics root.
inline constexpr char kCatalogFile[] = "bmci2c/bmci2c.msg.xml";

}  // namespace base
