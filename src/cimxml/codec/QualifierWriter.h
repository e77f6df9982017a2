// Qualifiers of classes and of their members, and qualifier declarations.
#pragma once

#include <cimxml/codec/XmlWriter.h>
#include <host/schema/ClassRepository.h>

#include <vector>

namespace cimxml {

// A qualifier as an element has it: its own, or one that is passed on to it.
struct EffectiveQualifier {
    const mof::Qualifier* qualifier;
    bool isPropagated;
};

using EffectiveQualifiers = std::vector<EffectiveQualifier>;

// Own qualifiers only, or (`withInherited`) those that the declarations further up pass on, too.
EffectiveQualifiers QualifiersOfClass(const mof::Schema& schema, const host::ClassInfo& cls,
                                      bool withInherited);
EffectiveQualifiers QualifiersOfProperty(const mof::Schema& schema, const host::ClassInfo& cls,
                                         const std::string& property, bool withInherited);
EffectiveQualifiers QualifiersOfMethod(const mof::Schema& schema, const host::ClassInfo& cls,
                                       const std::string& method, bool withInherited);

void WriteQualifiers(XmlWriter& xml, const mof::Schema& schema, const EffectiveQualifiers& all);

// The qualifiers that a parameter has itself.
void WriteQualifiers(XmlWriter& xml, const mof::Schema& schema,
                     const std::vector<mof::Qualifier>& own);

void WriteQualifierDeclaration(XmlWriter& xml, const mof::QualifierDeclaration& declaration);

}  // namespace cimxml
