#include <base/Names.h>
#include <cli/registration/CimServer.h>

namespace cli {

namespace {

using base::kNameSpace;
constexpr const char* kModule = "QUVSG_BMCI2C_DiagnosticService_Module";
constexpr const char* kClassOfRegistrations = "PG_ProviderModule";
constexpr const char* kPublishedClass = "CIM_System";  // no base class of the module's

class PegasusServer : public CimServer {
public:
    explicit PegasusServer(const PegasusOptions& chosen) : options(chosen) {}

    ServerPackage Package() const override {
        return {"OpenPegasus", "tog-pegasus", {"cimprovider", "cimmof", "cimcli"}};
    }

    bool HasPublishedClasses() const override { return options.hasPublishedClasses; }

    std::string RegistrationsName() const override { return "bmci2c-pegasus.mof"; }

    void Register(ServerTools& tools, const RegistrationFiles& files) const override {
        CheckNameSpaces(tools);
        Unregister(tools, files);
        tools.Run({"cimmof", "-n", kNameSpace, files.mof});
        tools.Run({"cimmof", "-n", options.interop, files.registrations});
    }

    void Unregister(ServerTools& tools, const RegistrationFiles& /*files*/) const override {
        tools.WhenPrinted({"cimprovider", "-l"}, kModule, [&tools] {
            tools.Try({"cimprovider", "-d", "-m", kModule});  // refused when it is disabled already
            tools.Run({"cimprovider", "-r", "-m", kModule});
        });
    }

    std::string AfterRegister(const std::string& moduleFolder) const override {
        return "Next: add " + moduleFolder +
               " to the server's option providerDir, whose value 'cimconfig -g providerDir' shows: "
               "'cimconfig -p -s providerDir=VALUE:" +
               moduleFolder + "'. Then restart the server: 'cimserver -s', 'cimserver'.";
    }

    std::string AfterUnregister() const override {
        return "Its classes stay in " + std::string(kNameSpace) +
               ", without a provider. The module's folder stays in the server's option "
               "providerDir.";
    }

private:
    static bool HasClass(ServerTools& tools, const std::string& nameSpace, const char* className,
                         bool expected) {
        return tools.Lists({"cimcli", "nc", "-di", "-n", nameSpace}, className, expected);
    }

    // Checked before anything is changed: a registration that fails halfway would leave the server
    // with none.
    void CheckNameSpaces(ServerTools& tools) const {
        if (!HasClass(tools, options.interop, kClassOfRegistrations, true))
            throw RegistrationError(
                {"The namespace '" + options.interop +
                     "' does not hold OpenPegasus's registrations: it has no class " +
                     kClassOfRegistrations + ".",
                 "Start the server if it does not run. Otherwise name the right namespace, such as "
                 "--interop root/interop or --interop root/PG_InterOp."});
        const bool isPublished =
            HasClass(tools, kNameSpace, kPublishedClass, options.hasPublishedClasses);
        if (isPublished && !options.hasPublishedClasses)
            throw RegistrationError({"The namespace '" + std::string(kNameSpace) +
                                         "' holds the published CIM classes, with which the "
                                         "module's base classes would "
                                         "mix.",
                                     "Register with --published-classes."});
        if (!isPublished && options.hasPublishedClasses)
            throw RegistrationError({"The namespace '" + std::string(kNameSpace) +
                                         "' does not hold the published CIM classes.",
                                     "Load them first, or leave out --published-classes."});
    }

    const PegasusOptions options;
};

}  // namespace

std::unique_ptr<CimServer> Pegasus(const PegasusOptions& options) {
    return std::make_unique<PegasusServer>(options);
}

}  // namespace cli
