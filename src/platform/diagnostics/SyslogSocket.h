// Where syslog listens.
#pragma once

namespace NQUVZDX20 {

// The path of syslog's datagram socket.
const char* SyslogSocketPath();

}  // namespace NQUVZDX20
