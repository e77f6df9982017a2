#include <base/Names.h>
#include <cli/registration/CimServer.h>

namespace cli {

namespace {

using base::kNameSpace;
constexpr const char* kModule = "QUVSG_BMCI2C_DiagnosticService_Module";

class PegasusServer : public CimServer {
public:
    explicit PegasusServer(const PegasusOptions& chosen) : options(chosen) {}

    ServerPackage Package() const override {
        return {"OpenPegasus", "tog-pegasus", {"cimprovider", "cimmof"}};
    }

    bool HasPublishedClasses() const override { return options.hasPublishedClasses; }

    std::string RegistrationsName() const override { return "bmci2c-pegasus.mof"; }

    void Register(ServerTools& tools, const RegistrationFiles& files) const override {
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
        return "Next: make sure that the server's option providerDir names " + moduleFolder +
               " (cimconfig -g providerDir).";
    }

    std::string AfterUnregister() const override {
        return "Its classes stay in " + std::string(kNameSpace) + ", without a provider.";
    }

private:
    const PegasusOptions options;
};

}  // namespace

std::unique_ptr<CimServer> Pegasus(const PegasusOptions& options) {
    return std::make_unique<PegasusServer>(options);
}

}  // namespace cli
