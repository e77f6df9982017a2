// Types of properties, parameters, methods and qualifiers.
#pragma once

#include <mof/TokenStream.h>

namespace mof {

// "uint16" or "CIM_Job REF", without the brackets of an array, which stand behind the name of what
// has the type. Whether the class exists is not looked at. Throws Error.
TypeName ParseType(TokenStream& tokens);

// Takes "[]" or "[3]" if it comes next, and returns whether it did. The size itself is not kept.
bool ParseArrayBrackets(TokenStream& tokens);

}  // namespace mof
