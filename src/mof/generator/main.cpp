// mofgen: makes from MOF what the build needs of it.
#include <mof/Reader.h>
#include <mof/generator/ClassHeader.h>
#include <mof/generator/OutputFile.h>
#include <mof/generator/PegasusRegistrations.h>
#include <mof/generator/PublishedMof.h>
#include <mof/generator/Registrations.h>
#include <mof/generator/Tables.h>

#include <exception>
#include <iostream>
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

// What a server's administrator registers the module with.
void WriteServerFiles(const mof::Schema& schema, const std::filesystem::path& folder) {
    mof::WriteIfChanged(folder / "bmci2c.reg", mof::Registrations(schema));
    mof::WriteIfChanged(folder / "bmci2c-pegasus.mof",
                        mof::PegasusRegistrations(schema, BMCI2C_VERSION));
    mof::WriteIfChanged(folder / "bmci2c-published.mof", mof::PublishedMof(schema));
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view mode = argc == 4 ? argv[1] : "";
    if (mode != "--classes" && mode != "--server-files") {
        std::cerr << "Usage: mofgen --classes MOF-FILE OUTPUT-FOLDER\n"
                     "       mofgen --server-files MOF-FILE OUTPUT-FOLDER\n";
        return kWrongUsage;
    }
    try {
        const mof::Schema schema = mof::ReadFile(argv[2]);
        if (mode == "--classes") {
            WriteClasses(schema, argv[3]);
        } else {
            WriteServerFiles(schema, argv[3]);
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
        return kFailed;
    }
    return 0;
}
