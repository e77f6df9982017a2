// Registering the module with the CIM servers that are known. Registering and unregistering are
// idempotent.
#pragma once

#include <cli/registration/ServerTools.h>

#include <memory>
#include <string>

namespace cli {

// What a registration consists of.
struct RegistrationFiles {
    std::string mof;            // the module's classes, in the form that suits the server
    std::string registrations;  // the providers, in the server's own format
};

class CimServer {
public:
    CimServer() = default;
    CimServer(const CimServer&) = delete;
    CimServer& operator=(const CimServer&) = delete;
    virtual ~CimServer() = default;

    virtual ServerPackage Package() const = 0;

    // Whether the module's namespace holds the published CIM classes before the module's come.
    virtual bool HasPublishedClasses() const = 0;

    // The file's name in the schema folder.
    virtual std::string RegistrationsName() const = 0;

    virtual void Register(ServerTools& tools, const RegistrationFiles& files) const = 0;
    virtual void Unregister(ServerTools& tools, const RegistrationFiles& files) const = 0;

    // What the user must still do, one sentence each.
    virtual std::string AfterRegister(const std::string& moduleFolder) const = 0;
    virtual std::string AfterUnregister() const = 0;
};

struct PegasusOptions {
    std::string interop = "root/PG_InterOp";  // the namespace of OpenPegasus's registrations
    bool hasPublishedClasses = false;

    bool operator==(const PegasusOptions&) const = default;
};

std::unique_ptr<CimServer> Sfcb();
std::unique_ptr<CimServer> Pegasus(const PegasusOptions& options);

}  // namespace cli
