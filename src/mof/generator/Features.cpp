#include <mof/Names.h>
#include <mof/generator/Features.h>

#include <stdexcept>

namespace mof {

namespace {

// MOF may spell a class in any letter case; C++ knows only that of its declaration.
TypeName WithDeclaredClass(const Schema& schema, TypeName type) {
    if (const Class* referenced = schema.Find(type.referenceClass)) {
        type.referenceClass = referenced->name;
    }
    return type;
}

// The member's name, which is that of the first declaration.
std::string MemberName(const Inherited<Property>& property) {
    for (const Property& declared : property.origin->properties) {
        if (SameName(declared.name, property.member->name)) {
            return declared.name;
        }
    }
    return property.member->name;
}

Feature FromParameter(const Schema& schema, const Method& method, const Parameter& parameter) {
    if (parameter.type.type == DataType::Reference && parameter.type.isArray) {
        throw std::runtime_error(
            "Parameter '" + parameter.name + "' of method '" + method.name +
            "' is an array of references, which a generated class cannot hold.");
    }
    return {parameter.name, WithDeclaredClass(schema, parameter.type), false, IsIn(parameter),
            IsOut(parameter)};
}

}  // namespace

std::vector<Feature> FeaturesOf(const Schema& schema, const Class& cls) {
    std::vector<Feature> features;
    for (const auto& property : AllProperties(schema, cls)) {
        const std::string name = MemberName(property);
        features.push_back(
            {name, WithDeclaredClass(schema, property.member->type), IsKey(schema, cls, name)});
    }
    return features;
}

std::vector<Feature> FeaturesOf(const Schema& schema, const Method& method) {
    std::vector<Feature> features;
    for (const Parameter& parameter : method.parameters) {
        features.push_back(FromParameter(schema, method, parameter));
    }
    features.push_back({"return_value", method.returnType, false, false, true});
    return features;
}

std::vector<Feature> OwnFeatures(const Schema& schema, const Class& cls) {
    std::vector<Feature> features = FeaturesOf(schema, cls);
    const Class* superClass = schema.Find(cls.superClass);
    const std::size_t inherited =
        superClass == nullptr ? 0 : AllProperties(schema, *superClass).size();
    features.erase(features.begin(), features.begin() + static_cast<std::ptrdiff_t>(inherited));
    return features;
}

std::vector<Inherited<Method>> OwnMethods(const Schema& schema, const Class& cls) {
    std::vector<Inherited<Method>> own;
    for (const auto& method : AllMethods(schema, cls)) {
        if (method.declarer == &cls) {
            own.push_back(method);
        }
    }
    return own;
}

}  // namespace mof
