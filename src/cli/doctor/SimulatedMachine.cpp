#include <cli/Installation.h>
#include <cli/doctor/SimulatedMachine.h>
#include <stdlib.h>

#include <cerrno>
#include <fstream>
#include <system_error>

namespace cli {

namespace {

constexpr const char* kCatalog =
    "<bmci2cmsg version=\"1.0\">\n<machine type=\"GENERIC_QUV\">\n</machine>\n</bmci2cmsg>\n";

constexpr const char* kProfile =
    "machine_type = \"GENERIC_QUV\"\n"
    "bios_id = \"simulated\"\n"
    "[[node]]\n"
    "data = [0]\n";

std::filesystem::path NewFolder() {
    std::string name = std::filesystem::temp_directory_path() / "bmci2c-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr)
        throw std::system_error(errno, std::generic_category(), "A folder " + name);
    return name;
}

}  // namespace

MachineFolder::MachineFolder() : path(NewFolder()) {
    Write(CatalogBelow(path), kCatalog);
    Write(Profile(), kProfile);
}

MachineFolder::~MachineFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

void MachineFolder::Write(const std::filesystem::path& name, const std::string& text) const {
    std::filesystem::create_directories(name.parent_path());
    std::ofstream file(name);
    file << text << std::flush;
    if (!file) throw std::system_error(errno, std::generic_category(), "The file " + name.string());
}

}  // namespace cli
