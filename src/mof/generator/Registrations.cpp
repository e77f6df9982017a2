#include <mof/generator/Registrations.h>

#include <sstream>
#include <string_view>

namespace mof {

namespace {

constexpr std::string_view kModulePrefix = "QUVSG_BMCI2C_";
constexpr std::string_view kModuleLocation = "bmci2c.cmpi";  // stands for libbmci2c.cmpi.so
constexpr std::string_view kNameSpace = "root/QUVSD";

// The records of a run live in the process that ran it, so the module must never be unloaded.
void WriteStanza(std::ostream& out, const Schema& schema, const Class& cls) {
    out << "[" << cls.name << "]\n"
        << "   provider: " << cls.name << "_Provider\n"
        << "   location: " << kModuleLocation << "\n"
        << "   type: instance method" << (IsAssociation(schema, cls) ? " association" : "") << "\n"
        << "   namespace: " << kNameSpace << "\n"
        << "   unload: never\n";
}

}  // namespace

std::string Registrations(const Schema& schema) {
    std::ostringstream out;
    const char* separator = "";
    for (const Class& cls : schema.classes) {
        if (cls.name.starts_with(kModulePrefix)) {
            out << separator;
            WriteStanza(out, schema, cls);
            separator = "\n";
        }
    }
    return out.str();
}

}  // namespace mof
