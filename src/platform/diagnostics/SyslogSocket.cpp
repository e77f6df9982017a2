#include <platform/diagnostics/SyslogSocket.h>

namespace NQUVZDX20 {

const char* SyslogSocketPath() { return "/dev/log"; }

}  // namespace NQUVZDX20
