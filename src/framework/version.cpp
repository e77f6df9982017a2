#include <framework/version.h>

namespace cimple {

const int __cimple_version_1_2_0 = 0x010200;

}  // namespace cimple
