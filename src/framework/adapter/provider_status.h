// What a provider's status means to a CIM server.
#pragma once

namespace cimple {

// Returns when the status is success; throws the Request_Error that stands for any other.
void check_status(int status);

}  // namespace cimple
