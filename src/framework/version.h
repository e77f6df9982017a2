// The version of the framework's interface, for modules to bind themselves to.
#pragma once

namespace cimple {

extern const int __cimple_version_1_2_0;

}  // namespace cimple
