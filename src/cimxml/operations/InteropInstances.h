// A server's self-description: the instances of its namespace root/interop.
#pragma once

#include <host/Value.h>
#include <host/schema/ClassRepository.h>

#include <string>
#include <vector>

namespace cimxml {

inline constexpr const char* kInteropName = "root/interop";
inline constexpr const char* kConformance = "CIM_ElementConformsToProfile";

class InteropInstances {
public:
    // `names` are those of all namespaces. Throws host::LoadError when the repository lacks a class
    // of the instances.
    InteropInstances(const host::ClassRepository& repository, const std::string& version,
                     const std::vector<std::string>& names);

    // The object manager, the namespaces and the profiles.
    const std::vector<host::Instance>& Objects() const { return objects; }

    // The associations of each profile with what conforms to it: every profile with the profile of
    // profile registration, and the diagnostic services with the profile of the bus test.
    std::vector<host::Instance> Conformances(
        const std::vector<host::ObjectPath>& diagnosticServices) const;

private:
    host::Instance Make(const char* className, const std::vector<host::NamedValue>& given) const;
    host::Instance ObjectManager(const std::string& version) const;
    host::Instance NameSpaceNamed(const std::string& name) const;
    host::Instance Conformance(const host::ObjectPath& profile,
                               const host::ObjectPath& element) const;

    const host::ClassRepository& classes;
    const host::Instance registrationProfile;
    const host::Instance diagnosticProfile;
    std::vector<host::Instance> objects;
};

}  // namespace cimxml
