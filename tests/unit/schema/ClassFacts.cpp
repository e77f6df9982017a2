#include "ClassFacts.h"

#include <algorithm>
#include <fstream>
#include <ostream>
#include <sstream>
#include <stdexcept>

namespace {

// A class begins with what its superclass has.
ClassFacts BeginClass(const std::string& line, const std::vector<ClassFacts>& known) {
    std::istringstream words(line);
    ClassFacts facts;
    words >> facts.name;
    for (std::string word; words >> word;) {
        if (word == ":") {
            words >> facts.superClass;
        } else {
            facts.flags += (facts.flags.empty() ? "" : " ") + word;
        }
    }
    for (const ClassFacts& other : known) {
        if (other.name == facts.superClass) {
            facts.properties = other.properties;
            facts.methods = other.methods;
        }
    }
    return facts;
}

// "string Name key" -> "Name"
std::string NameOf(const std::string& property) {
    std::istringstream words(property);
    std::string type, name;
    words >> type >> name;
    if (name == "REF") {
        words >> name;
    }
    return name;
}

// "string Name override" takes the place of the property of that name, which stays a key.
void Override(std::vector<std::string>& properties, const std::string& line) {
    const std::string overriding = line.substr(0, line.rfind(" override"));
    const auto overridden = std::find_if(
        properties.begin(), properties.end(),
        [&](const std::string& property) { return NameOf(property) == NameOf(overriding); });
    if (overridden == properties.end()) {
        throw std::runtime_error("There is nothing to override for: " + line);
    }
    const bool staysKey = overridden->ends_with(" key") && !overriding.ends_with(" key");
    *overridden = overriding + (staysKey ? " key" : "");
}

void AddMember(ClassFacts& facts, const std::string& line) {
    if (line.find('(') != std::string::npos) {
        facts.methods.push_back(line);
    } else if (line.ends_with(" override")) {
        Override(facts.properties, line);
    } else {
        facts.properties.push_back(line);
    }
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const ClassFacts& facts) { return out << facts.name; }

std::vector<ClassFacts> ReadClassFacts(const std::string& path) {
    std::ifstream file(path);
    std::vector<ClassFacts> classes;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        if (line.starts_with(' ')) {
            AddMember(classes.back(), line.substr(line.find_first_not_of(' ')));
        } else {
            classes.push_back(BeginClass(line, classes));
        }
    }
    return classes;
}
