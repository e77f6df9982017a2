#include <cli/registration/CimServer.h>

#include <filesystem>

namespace cli {

namespace {

// sfcb keeps its namespaces in folders and looks them up in lower case.
constexpr const char* kStagedNameSpace = "root/quvsd";

// The name of a file in sfcb's staging area.
std::string Staged(const std::filesystem::path& file) { return file.filename(); }

// What is staged takes effect when the class repository is built; -f keeps sfcbrepos from asking.
void BuildRepository(ServerTools& tools) { tools.Run({"sfcbrepos", "-f"}); }

class SfcbServer : public CimServer {
public:
    ServerPackage Package() const override {
        return {"sfcb", "sfcb (sblim-sfcb elsewhere)", {"sfcbstage", "sfcbunstage", "sfcbrepos"}};
    }

    // sfcb compiles them into every namespace.
    bool HasPublishedClasses() const override { return true; }

    std::string RegistrationsName() const override { return "bmci2c.reg"; }

    void Register(ServerTools& tools, const RegistrationFiles& files) const override {
        tools.Run({"sfcbstage", "-n", kStagedNameSpace, "-r", files.registrations, files.mof});
        BuildRepository(tools);
    }

    void Unregister(ServerTools& tools, const RegistrationFiles& files) const override {
        tools.Run({"sfcbunstage", "-n", kStagedNameSpace, "-r", Staged(files.registrations),
                   Staged(files.mof)});
        BuildRepository(tools);
    }

    std::string AfterRegister(const std::string& moduleFolder) const override {
        return "Next: make sure that providerDirs in sfcb.cfg names " + moduleFolder +
               ", and restart sfcb.";
    }

    std::string AfterUnregister() const override {
        return "Next: restart sfcb. The module's folder stays in providerDirs of sfcb.cfg.";
    }
};

}  // namespace

std::unique_ptr<CimServer> Sfcb() { return std::make_unique<SfcbServer>(); }

}  // namespace cli
