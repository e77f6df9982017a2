// The kernel's IPMI devices in a folder such as /dev: ipmiN, ipmi/N and ipmidev/N.
#pragma once

#include <map>
#include <string>

namespace platform {

// Their paths, by number.
std::map<unsigned, std::string> Devices(const std::string& deviceFolder);

// That there is none: every path of device 0, each with its own reason.
std::string MissingDevices(const std::string& deviceFolder);

}  // namespace platform
