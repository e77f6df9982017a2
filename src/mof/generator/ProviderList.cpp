#include <mof/generator/ModuleClasses.h>
#include <mof/generator/ProviderList.h>

#include <algorithm>
#include <sstream>

namespace mof {

namespace {

constexpr const char* kHeaderBeginning =
    "// Generated from MOF: changes belong there.\n#pragma once\n\n";

std::vector<const Class*> ByName(const Schema& schema) {
    auto classes = ModuleClasses(schema);
    std::ranges::sort(classes, {}, &Class::name);
    return classes;
}

}  // namespace

std::string ProviderList(const Schema& schema) {
    std::ostringstream out;
    out << kHeaderBeginning << "#define BMCI2C_PROVIDERS(PLAIN, ASSOCIATION)";
    for (const Class* cls : ByName(schema)) {
        out << " \\\n    " << (IsAssociation(schema, *cls) ? "ASSOCIATION(" : "PLAIN(")
            << cls->name.substr(kModulePrefix.size()) << ")";
    }
    out << "\n";
    return out.str();
}

std::string ProviderHeaders(const Schema& schema) {
    std::ostringstream out;
    out << kHeaderBeginning;
    for (const Class* cls : ByName(schema)) {
        out << "#include <providers/" << ProviderOf(*cls) << ".h>\n";
    }
    return out.str();
}

}  // namespace mof
