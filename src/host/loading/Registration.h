// Which provider serves a class.
#pragma once

#include <string>
#include <vector>

namespace host {

struct Registration {
    std::string className;
    std::string provider;
    std::string location;            // "bmci2c.cmpi" stands for libbmci2c.cmpi.so
    std::vector<std::string> types;  // "instance", "method", "association"
    std::vector<std::string> nameSpaces;

    bool HasType(const std::string& type) const;
    bool IsIn(const std::string& nameSpace) const;  // in any letter case
};

// The types that the host knows.
inline constexpr const char* kInstanceType = "instance";
inline constexpr const char* kMethodType = "method";
inline constexpr const char* kAssociationType = "association";

}  // namespace host
