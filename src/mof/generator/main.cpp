// mofgen: generates from MOF what the build needs.
#include <mof/Reader.h>
#include <mof/generator/ClassHeader.h>
#include <mof/generator/OutputFile.h>
#include <mof/generator/PegasusRegistrations.h>
#include <mof/generator/ProviderList.h>
#include <mof/generator/PublishedMof.h>
#include <mof/generator/Registrations.h>
#include <mof/generator/Tables.h>

#include <exception>
#include <iostream>
#include <map>
#include <string_view>

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 64;

void WriteClasses(const mof::Schema& schema, const std::filesystem::path& outputFolder) {
    const auto folder = outputFolder / "schema";
    for (const mof::Class& cls : schema.classes) {
        mof::WriteIfChanged(folder / (cls.name + ".h"), mof::ClassHeader(schema, cls));
    }
    mof::WriteIfChanged(folder / "Repository.h", mof::RepositoryHeader());
    mof::WriteIfChanged(folder / "Tables.cpp", mof::Tables(schema));
}

// The files with which a server's administrator registers the module.
void WriteServerFiles(const mof::Schema& schema, const std::filesystem::path& folder) {
    mof::WriteIfChanged(folder / "bmci2c.reg", mof::Registrations(schema));
    mof::WriteIfChanged(folder / "bmci2c-pegasus.mof",
                        mof::PegasusRegistrations(schema, BMCI2C_VERSION));
    mof::WriteIfChanged(folder / "bmci2c-published.mof", mof::PublishedMof(schema));
}

// The list from which the module makes its registrations, dispatch procedures and factories.
void WriteProviderList(const mof::Schema& schema, const std::filesystem::path& outputFolder) {
    const auto folder = outputFolder / "module";
    mof::WriteIfChanged(folder / "provider_list.h", mof::ProviderList(schema));
    mof::WriteIfChanged(folder / "all_providers.h", mof::ProviderHeaders(schema));
}

using Writer = void (*)(const mof::Schema&, const std::filesystem::path&);

const std::map<std::string_view, Writer> kModes = {
    {"--classes", WriteClasses},
    {"--providers", WriteProviderList},
    {"--server-files", WriteServerFiles},
};

int PrintUsage() {
    const char* lead = "Usage: mofgen ";
    for (const auto& [mode, writer] : kModes) {
        std::cerr << lead << mode << " MOF-FILE OUTPUT-FOLDER\n";
        lead = "       mofgen ";
    }
    return kWrongUsage;
}

}  // namespace

int main(int argc, char** argv) {
    const auto mode = argc == 4 ? kModes.find(argv[1]) : kModes.end();
    if (mode == kModes.end()) return PrintUsage();
    try {
        mode->second(mof::ReadFile(argv[2]), argv[3]);
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
        return kFailed;
    }
    return 0;
}
