#include <mof/DataTypes.h>
#include <mof/generator/ModuleClasses.h>
#include <mof/generator/PublishedMof.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

namespace mof {

namespace {

// A class that cannot stand on its published base, and the nearest ancestor that it can stand on.
struct StandsApart {
    std::string_view name;
    std::string_view ancestor;  // empty: none
};

// The published CIM_DiagnosticSetting has the key SettingID, and LoopControlParameter as an array;
// the published CIM_RecordAppliesToElement has the references Antecedent and Dependent as keys.
constexpr std::array kStandApart = {
    StandsApart{"QUVSG_BMCI2C_DiagnosticSetting", "CIM_ManagedElement"},
    StandsApart{"QUVSG_BMCI2C_RecordAppliesToElement", ""},
};

constexpr std::string_view kMofBeginning =
    "// Generated from bmci2c.mof: changes belong there.\n"
    "//\n"
    "// The module's classes for servers that bring the published CIM classes into every "
    "namespace.\n"
    "// QUVSG_BMCI2C_DiagnosticSetting and QUVSG_BMCI2C_RecordAppliesToElement declare everything\n"
    "// themselves: their published bases have other keys, which the module leaves NULL.\n";

std::string AncestorOf(const Class& cls) {
    const auto* apart = std::find_if(kStandApart.begin(), kStandApart.end(),
                                     [&](const auto& entry) { return entry.name == cls.name; });
    return apart == kStandApart.end() ? cls.superClass : std::string(apart->ancestor);
}

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char letter : text) {
        quoted += letter == '"' || letter == '\\' ? std::string{'\\', letter} : std::string{letter};
    }
    return quoted + "\"";
}

// "uint16 OperationalStatus[]"
std::string Declaration(TypeName type, const std::string& name) {
    const char* brackets = type.isArray ? "[]" : "";
    type.isArray = false;
    return ToText(type) + " " + name + brackets;
}

std::string ParameterText(const Parameter& parameter) {
    const char* const in = IsIn(parameter) ? "In" : "In (false)";
    const char* const out = IsOut(parameter) ? ", Out" : "";
    return "[" + std::string(in) + out + "] " + Declaration(parameter.type, parameter.name);
}

void WriteMethod(std::ostream& out, const Method& method) {
    out << "    " << ToText(method.returnType) << " " << method.name << "(";
    const char* separator = "";
    for (const Parameter& parameter : method.parameters) {
        out << separator << "\n        " << ParameterText(parameter);
        separator = ",";
    }
    out << ");\n";
}

void WriteQualifiers(std::ostream& out, const Schema& schema, const Class& cls) {
    const Qualifier* description = FindQualifier(cls.qualifiers, "Description");
    out << (IsAssociation(schema, cls) ? "[Association, " : "[") << "Description ("
        << Quoted(std::get<std::string>(std::get<Scalar>(description->value))) << ")]\n";
}

// Everything that the class has and `ancestor` has not becomes the class's own.
void WritePublishedClass(std::ostream& out, const Schema& schema, const Class& cls,
                         const std::string& ancestor) {
    const auto isOwn = [&](const auto& member) {
        return !IsSubclass(schema, member.declarer->name, ancestor);
    };
    out << "\n";
    WriteQualifiers(out, schema, cls);
    out << "class " << cls.name << (ancestor.empty() ? "" : " : ") << ancestor << " {\n";
    for (const auto& property : AllProperties(schema, cls)) {
        if (isOwn(property)) {
            const std::string& name = property.member->name;
            out << "    " << (IsKey(schema, cls, name) ? "[Key] " : "")
                << Declaration(property.member->type, name) << ";\n";
        }
    }
    for (const auto& method : AllMethods(schema, cls)) {
        if (isOwn(method)) {
            WriteMethod(out, *method.member);
        }
    }
    out << "};\n";
}

}  // namespace

std::string PublishedMof(const Schema& schema) {
    std::ostringstream out;
    out << kMofBeginning;
    for (const Class* cls : ModuleClasses(schema)) {
        WritePublishedClass(out, schema, *cls, AncestorOf(*cls));
    }
    return out.str();
}

}  // namespace mof
