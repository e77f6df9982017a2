#include <mof/generator/CppNames.h>
#include <mof/generator/Features.h>
#include <mof/generator/Tables.h>

#include <sstream>

namespace mof {

namespace {

// The differences between the entries of a class and of a method's record.
struct TableEntry {
    std::string cppClass;
    std::string name;
    std::string flags;
    std::string superClass;  // empty: none
    std::vector<Feature> features;
    std::vector<Inherited<Method>> methods;
};

std::string MetaClassOf(const std::string& cppClass) {
    return cppClass.empty() ? "nullptr" : "&" + cppClass + "::static_meta_class";
}

void AddFlag(std::string& flags, bool isSet, const std::string& flag) {
    if (isSet) {
        flags += (flags.empty() ? "cimple::" : " | cimple::") + flag;
    }
}

std::string FeatureFlags(const Feature& feature) {
    const bool isReference = feature.type.type == DataType::Reference;
    std::string flags;
    AddFlag(flags, !isReference, "FEATURE_PROPERTY");
    AddFlag(flags, isReference, "FEATURE_REFERENCE");
    AddFlag(flags, feature.type.isArray, "FEATURE_ARRAY");
    AddFlag(flags, feature.isKey, "FEATURE_KEY");
    AddFlag(flags, feature.isIn, "FEATURE_IN");
    AddFlag(flags, feature.isOut, "FEATURE_OUT");
    return flags;
}

std::string ClassFlags(const Schema& schema, const Class& cls) {
    std::string flags;
    AddFlag(flags, HasFlag(cls.qualifiers, "Abstract"), "CLASS_ABSTRACT");
    AddFlag(flags, IsAssociation(schema, cls), "CLASS_ASSOCIATION");
    return flags.empty() ? "0" : flags;
}

void WriteFeature(std::ostream& out, const std::string& cppClass, const Feature& feature) {
    const bool isReference = feature.type.type == DataType::Reference;
    const std::string type =
        isReference ? "cimple::Type{}" : "cimple::Type::" + TypeEnumerator(feature.type.type);
    out << "    {\"" << feature.name << "\", " << FeatureFlags(feature) << ", " << type << ", "
        << MetaClassOf(feature.type.referenceClass) << ", offsetof(" << cppClass << ", "
        << feature.name << ")},\n";
}

void WriteFeatures(std::ostream& out, const TableEntry& entry) {
    out << "constexpr cimple::Meta_Feature " << FeatureTableName(entry.cppClass) << "[] = {\n";
    for (const Feature& feature : entry.features) {
        WriteFeature(out, entry.cppClass, feature);
    }
    out << "};\n";
}

void WriteMethods(std::ostream& out, const TableEntry& entry) {
    out << "constexpr const cimple::Meta_Class* " << MethodTableName(entry.cppClass) << "[] = {\n";
    for (const auto& method : entry.methods) {
        out << "    " << MetaClassOf(RecordName(method)) << ",\n";
    }
    out << "};\n";
}

// An empty list has no array: C++ knows none without elements.
void WriteLists(std::ostream& out, const TableEntry& entry) {
    out << "namespace {\n";
    if (!entry.features.empty()) {
        WriteFeatures(out, entry);
    }
    if (!entry.methods.empty()) {
        WriteMethods(out, entry);
    }
    out << "}  // namespace\n";
}

template <class Element>
void WriteListAndCount(std::ostream& out, const std::string& table,
                       const std::vector<Element>& list) {
    out << "    " << (list.empty() ? "nullptr" : table) << ", " << list.size() << ",\n";
}

void WriteEntry(std::ostream& out, const TableEntry& entry) {
    const std::string& cppClass = entry.cppClass;
    WriteLists(out, entry);
    out << "constinit const cimple::Meta_Class " << cppClass << "::static_meta_class = {\n"
        << "    \"" << entry.name << "\", " << entry.flags << ", " << MetaClassOf(entry.superClass)
        << ",\n";
    WriteListAndCount(out, FeatureTableName(cppClass), entry.features);
    WriteListAndCount(out, MethodTableName(cppClass), entry.methods);
    out << "    sizeof(" << cppClass << "), &cimple::construct_as<" << cppClass
        << ">, &cimple::destruct_as<" << cppClass << ">, &schemaRepository};\n\n";
}

TableEntry EntryOf(const Schema& schema, const Class& cls) {
    const Class* superClass = schema.Find(cls.superClass);
    return {cls.name,
            cls.name,
            ClassFlags(schema, cls),
            superClass == nullptr ? "" : superClass->name,
            FeaturesOf(schema, cls),
            AllMethods(schema, cls)};
}

TableEntry EntryOf(const Schema& schema, const Inherited<Method>& method) {
    return {RecordName(method),
            method.member->name,
            "cimple::CLASS_METHOD",
            "",
            FeaturesOf(schema, *method.member),
            {}};
}

void WriteRepository(std::ostream& out, const Schema& schema) {
    out << "namespace {\nconstexpr const cimple::Meta_Class* schemaClasses[] = {\n";
    for (const Class& cls : schema.classes) {
        out << "    " << MetaClassOf(cls.name) << ",\n";
    }
    out << "};\n}  // namespace\n"
        << "constinit const cimple::Meta_Repository schemaRepository = {schemaClasses, "
        << schema.classes.size() << "};\n";
}

void WriteBeginning(std::ostream& out, const Schema& schema) {
    out << "// Generated from MOF: changes belong there.\n";
    for (const Class& cls : schema.classes) {
        out << "#include <schema/" << cls.name << ".h>\n";
    }
    out << "#include <schema/Repository.h>\n\n"
           "#include <cstddef>\n#include <new>\n\n"
           "// The classes have members in their bases, too. The standard leaves offsetof of such\n"
           "// classes to the compiler; GCC and Clang support it.\n"
           "#pragma GCC diagnostic ignored \"-Winvalid-offsetof\"\n\n";
}

}  // namespace

std::string Tables(const Schema& schema) {
    std::ostringstream out;
    WriteBeginning(out, schema);
    for (const Class& cls : schema.classes) {
        for (const auto& method : OwnMethods(schema, cls)) {
            WriteEntry(out, EntryOf(schema, method));
        }
        WriteEntry(out, EntryOf(schema, cls));
    }
    WriteRepository(out, schema);
    return out.str();
}

}  // namespace mof
