// What the generator writes for a class or for a method's record, in terms of C++: the one list
// that the class definition and its table are both made from.
#pragma once

#include <mof/Model.h>

#include <string>
#include <vector>

namespace mof {

// A property, reference or parameter.
struct Feature {
    std::string name;  // as the member is spelled where it is first declared
    TypeName type;
    bool isKey = false;
    bool isIn = false;   // of a parameter
    bool isOut = false;  // of a parameter
};

// All properties of a class, inherited first. Class names are those of the declarations.
std::vector<Feature> FeaturesOf(const Schema& schema, const Class& cls);

// The parameters of a method, and behind them "return_value".
std::vector<Feature> FeaturesOf(const Schema& schema, const Method& method);

// The properties for which the class itself has a member: those that no superclass has.
std::vector<Feature> OwnFeatures(const Schema& schema, const Class& cls);

// The methods that the class itself declares.
std::vector<Inherited<Method>> OwnMethods(const Schema& schema, const Class& cls);

}  // namespace mof
