// Qualifiers: the lists in brackets, and the declarations of qualifiers.
#pragma once

#include <mof/TokenStream.h>

#include <vector>

namespace mof {

// "[Key, Description ("...")]" if it comes next, else nothing. A qualifier without a value gets
// NULL; a flavor behind a qualifier is read and not kept. Throws Error.
std::vector<Qualifier> ParseQualifierList(TokenStream& tokens);

// "Qualifier Key : boolean = false, Scope(property), Flavor(DisableOverride);", at whose first word
// the tokens stand. Throws Error.
QualifierDeclaration ParseQualifierDeclaration(TokenStream& tokens);

}  // namespace mof
