// Class declarations.
#pragma once

#include <mof/Declarations.h>
#include <mof/TokenStream.h>

#include <string>
#include <unordered_set>
#include <vector>

namespace mof {

// Reads one class (an object for each), and checks it against those that are declared before it.
class ClassParser {
public:
    ClassParser(TokenStream& tokenStream, Declarations& known)
        : tokens(tokenStream), declarations(known) {}

    // Reads from the word "class" to the semicolon, and adds the class, with the qualifiers that
    // stood before it, to the declarations. Throws Error.
    void Parse(std::vector<Qualifier> qualifiers);

private:
    void ParseSuperClass();
    void ParseMember();
    void ParseProperty(Property property, const Place& place);
    void ParseMethod(Method method);
    void ParseParameter(Method& method, std::unordered_set<std::string>& names);

    TokenStream& tokens;
    Declarations& declarations;
    Class cls;
    std::unordered_set<std::string> propertyNames;  // folded
    std::unordered_set<std::string> methodNames;    // folded
};

}  // namespace mof
