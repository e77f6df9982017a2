#include <mof/generator/ClassHeader.h>
#include <mof/generator/CppNames.h>
#include <mof/generator/Features.h>
#include <mof/generator/ValueNames.h>

#include <set>
#include <sstream>

namespace mof {

namespace {

constexpr const char* kMetaClassMember =
    "\n    static const cimple::Meta_Class static_meta_class;\n";

// Every member that the header declares, those of method records included.
std::vector<Feature> DeclaredMembers(const Schema& schema, const Class& cls) {
    std::vector<Feature> members = OwnFeatures(schema, cls);
    for (const auto& method : OwnMethods(schema, cls)) {
        const auto parameters = FeaturesOf(schema, *method.member);
        members.insert(members.end(), parameters.begin(), parameters.end());
    }
    return members;
}

std::set<std::string> HeadersOf(const std::vector<Feature>& members) {
    std::set<std::string> headers = {"framework/Instance.h", "framework/Property.h"};
    for (const Feature& member : members) {
        if (member.type.isArray) {
            headers.insert("framework/Array.h");
        }
        if (member.type.type == DataType::String) {
            headers.insert("framework/String.h");
        }
        if (member.type.type == DataType::DateTime) {
            headers.insert("framework/Datetime.h");
        }
    }
    return headers;
}

void WriteIncludes(std::ostream& out, const std::string& superClass,
                   const std::vector<Feature>& members) {
    for (const std::string& header : HeadersOf(members)) {
        out << "#include <" << header << ">\n";
    }
    if (!superClass.empty()) {
        out << "#include <schema/" << superClass << ".h>\n";
    }
    out << "\n#include <cstdint>\n\n";
}

void WriteForwardDeclarations(std::ostream& out, const std::vector<Feature>& members) {
    std::set<std::string> classes;
    for (const Feature& member : members) {
        if (member.type.type == DataType::Reference) {
            classes.insert(member.type.referenceClass);
        }
    }
    for (const std::string& cls : classes) {
        out << "class " << cls << ";\n";
    }
    out << (classes.empty() ? "" : "\n");
}

void WriteMembers(std::ostream& out, const std::vector<Feature>& features) {
    for (const Feature& feature : features) {
        const bool isReference = feature.type.type == DataType::Reference;
        out << "    " << MemberType(feature.type) << " " << feature.name
            << (isReference ? " = nullptr;\n" : ";\n");
    }
}

// What a provider's method is passed for a member of the record: the member itself, but for a
// reference that only goes in, a pointer through which nothing can be changed.
std::string Argument(const Feature& feature) {
    const bool isReference = feature.type.type == DataType::Reference;
    return isReference && !feature.isOut
               ? "static_cast<const " + feature.type.referenceClass + "*>(" + feature.name + ")"
               : feature.name;
}

void WriteInvoke(std::ostream& out, const std::string& method,
                 const std::vector<Feature>& features) {
    out << "\n    // Calls the provider's method with the members of this record.\n"
        << "    template <class Provider, class Self>\n"
        << "    int invoke(Provider& provider, const Self* self) {\n"
        << "        return provider." << method << "(self";
    for (const Feature& feature : features) {
        out << ", " << Argument(feature);
    }
    out << ");\n    }\n";
}

void WriteRecord(std::ostream& out, const Schema& schema, const Inherited<Method>& method) {
    const auto features = FeaturesOf(schema, *method.member);
    out << "class " << RecordName(method) << " : public cimple::Instance {\npublic:\n";
    WriteMembers(out, features);
    WriteInvoke(out, method.member->name, features);
    out << kMetaClassMember << "};\n\n";
}

void WriteMethodList(std::ostream& out, const std::vector<Inherited<Method>>& methods) {
    out << "    using Methods = cimple::Method_List<";
    const char* separator = "";
    for (const auto& method : methods) {
        out << separator << "\n        " << RecordName(method);
        separator = ",";
    }
    out << ">;\n";
}

// A constant for each value that the schema names: "EnabledState_Enabled".
void WriteNamedValues(std::ostream& out, const Class& cls) {
    for (const Property& property : cls.properties) {
        for (const NamedValue& named : NamedValues(property)) {
            out << "    static constexpr " << ElementType(property.type.type) << " "
                << property.name << "_" << named.name << " = " << named.value << ";\n";
        }
    }
}

void WriteClass(std::ostream& out, const Schema& schema, const Class& cls,
                const std::string& superClass) {
    const auto own = OwnFeatures(schema, cls);
    const std::string base = superClass.empty() ? "cimple::Instance" : superClass;
    out << "class " << cls.name << " : public " << base << " {\npublic:\n";
    WriteMembers(out, own);
    out << (own.empty() ? "" : "\n");
    WriteNamedValues(out, cls);
    WriteMethodList(out, AllMethods(schema, cls));
    out << kMetaClassMember << "};\n";
}

}  // namespace

std::string ClassHeader(const Schema& schema, const Class& cls) {
    const Class* declaredSuperClass = schema.Find(cls.superClass);
    const std::string superClass = declaredSuperClass == nullptr ? "" : declaredSuperClass->name;
    const auto members = DeclaredMembers(schema, cls);
    std::ostringstream out;
    out << "// Generated from MOF: changes belong there.\n#pragma once\n\n";
    WriteIncludes(out, superClass, members);
    WriteForwardDeclarations(out, members);
    for (const auto& method : OwnMethods(schema, cls)) {
        WriteRecord(out, schema, method);
    }
    WriteClass(out, schema, cls, superClass);
    return out.str();
}

std::string RepositoryHeader() {
    return "// Generated from MOF: changes belong there.\n"
           "#pragma once\n\n"
           "#include <framework/Meta_Class.h>\n\n"
           "// All classes of the schema, in the order of their declaration.\n"
           "extern const cimple::Meta_Repository schemaRepository;\n";
}

}  // namespace mof
