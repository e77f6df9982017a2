#include <cimxml/codec/ClassWriter.h>
#include <cimxml/codec/QualifierWriter.h>
#include <cimxml/operations/ClassOperations.h>
#include <host/Status.h>
#include <host/schema/FindByName.h>

#include <functional>

namespace cimxml {

namespace {

using host::ClassInfo;

// Visits the subclasses of the class that the client names, or the root classes and theirs: those
// directly below it or (deep inheritance) all.
void ForEachSubclass(const Call& call, const std::function<void(const ClassInfo&)>& visit) {
    const std::string ancestorName = call.parameters.Class("ClassName");
    const bool isDeep = call.parameters.Flag("DeepInheritance", false);
    const ClassInfo* const ancestor =
        ancestorName.empty() ? nullptr : &ClassNamed(call.nameSpace, ancestorName);
    const host::ClassRepository& classes = call.nameSpace.Classes();
    for (const mof::Class& declared : classes.Schema().classes) {
        const ClassInfo& cls = *classes.Find(declared.name);
        const bool isBelow = !ancestor || (&cls != ancestor && cls.IsA(ancestor->Name()));
        if (isBelow && (isDeep || cls.superClass == ancestor)) visit(cls);
    }
}

Detail DetailOf(const Parameters& parameters) {
    return {.localOnly = parameters.Flag("LocalOnly", true),
            .includeQualifiers = parameters.Flag("IncludeQualifiers", true),
            .includeClassOrigin = parameters.Flag("IncludeClassOrigin", false)};
}

}  // namespace

void EnumerateClasses(const Call& call) {
    const Detail detail = DetailOf(call.parameters);
    ForEachSubclass(call, [&](const ClassInfo& cls) {
        WriteClass(call.xml, call.nameSpace.Classes().Schema(), cls, detail);
    });
}

void EnumerateClassNames(const Call& call) {
    ForEachSubclass(call, [&](const ClassInfo& cls) {
        call.xml.EmptyElement("CLASSNAME", {{"NAME", cls.Name()}});
    });
}

void GetClass(const Call& call) {
    const ClassInfo& cls = ClassNamed(call.nameSpace, call.parameters.RequiredClass("ClassName"),
                                      CMPI_RC_ERR_NOT_FOUND);
    const auto properties = call.parameters.Texts("PropertyList");
    Detail detail = DetailOf(call.parameters);
    if (properties) detail.properties = &*properties;
    WriteClass(call.xml, call.nameSpace.Classes().Schema(), cls, detail);
}

void EnumerateQualifiers(const Call& call) {
    for (const auto& declaration : call.nameSpace.Classes().Schema().qualifiers)
        WriteQualifierDeclaration(call.xml, declaration);
}

void GetQualifier(const Call& call) {
    const std::string name = call.parameters.Text("QualifierName");
    const auto* const declaration =
        host::FindByName(call.nameSpace.Classes().Schema().qualifiers, name);
    if (!declaration)
        throw host::Failure(
            CMPI_RC_ERR_NOT_FOUND,
            "There is no qualifier '" + name + "' in the namespace '" + call.nameSpace.name + "'.");
    WriteQualifierDeclaration(call.xml, *declaration);
}

}  // namespace cimxml
