#include <base/Names.h>
#include <mof/generator/ModuleClasses.h>
#include <mof/generator/Registrations.h>

#include <sstream>

namespace mof {

namespace {

// The records of a run live in the process that ran it, so the module must never be unloaded.
void WriteStanza(std::ostream& out, const Schema& schema, const Class& cls) {
    out << "[" << cls.name << "]\n"
        << "   provider: " << ProviderOf(cls) << "\n"
        << "   location: " << base::kModuleLocation << "\n"
        << "   type: instance method" << (IsAssociation(schema, cls) ? " association" : "") << "\n"
        << "   namespace: " << base::kNameSpace << "\n"
        << "   unload: never\n";
}

}  // namespace

std::string Registrations(const Schema& schema) {
    std::ostringstream out;
    const char* separator = "";
    for (const Class* cls : ModuleClasses(schema)) {
        out << separator;
        WriteStanza(out, schema, *cls);
        separator = "\n";
    }
    return out.str();
}

}  // namespace mof
