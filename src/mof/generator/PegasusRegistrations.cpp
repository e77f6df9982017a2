#include <base/Names.h>
#include <mof/generator/ModuleClasses.h>
#include <mof/generator/PegasusRegistrations.h>

#include <sstream>
#include <string_view>

namespace mof {

namespace {

constexpr std::string_view kProviderModule = "QUVSG_BMCI2C_DiagnosticService_Module";

// PG_ProviderCapabilities.ProviderType: 2 instance, 3 association, 5 method.
constexpr std::string_view kTypes = "{2, 5}";
constexpr std::string_view kAssociationTypes = "{2, 3, 5}";

void WriteModule(std::ostream& out, const std::string& version) {
    out << "instance of PG_ProviderModule {\n"
        << "    Name = \"" << kProviderModule << "\";\n"
        << "    Vendor = \"QUV\";\n"
        << "    Version = \"" << version << "\";\n"
        << "    InterfaceType = \"CMPI\";\n"
        << "    InterfaceVersion = \"2.0.0\";\n"
        << "    Location = \"" << base::kModuleLocation << "\";\n"
        << "};\n";
}

void WriteProvider(std::ostream& out, const Schema& schema, const Class& cls) {
    out << "\ninstance of PG_Provider {\n"
        << "    ProviderModuleName = \"" << kProviderModule << "\";\n"
        << "    Name = \"" << ProviderOf(cls) << "\";\n"
        << "};\n"
        << "instance of PG_ProviderCapabilities {\n"
        << "    ProviderModuleName = \"" << kProviderModule << "\";\n"
        << "    ProviderName = \"" << ProviderOf(cls) << "\";\n"
        << "    CapabilityID = \"" << cls.name << "\";\n"
        << "    ClassName = \"" << cls.name << "\";\n"
        << "    Namespaces = {\"" << base::kNameSpace << "\"};\n"
        << "    ProviderType = " << (IsAssociation(schema, cls) ? kAssociationTypes : kTypes)
        << ";\n"
        << "    SupportedProperties = NULL;\n"
        << "    SupportedMethods = NULL;\n"
        << "};\n";
}

}  // namespace

std::string PegasusRegistrations(const Schema& schema, const std::string& version) {
    std::ostringstream out;
    WriteModule(out, version);
    for (const Class* cls : ModuleClasses(schema)) {
        WriteProvider(out, schema, *cls);
    }
    return out.str();
}

}  // namespace mof
