// The classes as a person wrote them down, in classes.txt.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

struct ClassFacts {
    std::string name;
    std::string superClass;               // empty for a root class
    std::string flags;                    // "", "(abstract)", "(association)", or both
    std::vector<std::string> properties;  // inherited ones included: "uint16[] Name key"
    std::vector<std::string> methods;     // likewise: "uint32 Name(in string Parameter)"
};

std::ostream& operator<<(std::ostream& out, const ClassFacts& facts);

// All classes of the file, in its order.
std::vector<ClassFacts> ReadClassFacts(const std::string& path);
