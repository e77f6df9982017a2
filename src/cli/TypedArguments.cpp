#include <cli/Errors.h>
#include <cli/Text.h>
#include <cli/TypedArguments.h>
#include <host/schema/TypedValue.h>
#include <mof/DataTypes.h>
#include <mof/Names.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

namespace cli {

namespace {

// What a name of the command line stands for in the schema.
struct Declaration {
    std::string name;
    mof::TypeName type;
};

// A list of declarations, and how the user calls its members.
struct Declarations {
    std::string option;  // "--key"
    std::string noun;    // "key of X"
    std::vector<Declaration> members;
    bool isKnown = false;  // the schema has the class (and the method)
};

struct Given {
    std::string name;
    std::string text;
};

Given Split(const std::string& option, const std::string& text) {
    const auto equals = text.find('=');
    if (equals == std::string::npos || equals == 0)
        throw UsageError(option + " must have the form NAME=VALUE, not '" + text + "'.");
    return {text.substr(0, equals), text.substr(equals + 1)};
}

UsageError UnknownName(const Declarations& declared, const std::string& name) {
    std::vector<std::string> known;
    known.reserve(declared.members.size());
    for (const Declaration& member : declared.members) known.push_back(member.name);
    return UsageError(declared.option + ": unknown " + declared.noun + " '" + name + "'.",
                      known.empty() ? "There is none." : "Known: " + Listed(known) + ".");
}

const Declaration& Find(const Declarations& declared, const Given& given) {
    const auto found = std::find_if(
        declared.members.begin(), declared.members.end(),
        [&](const Declaration& member) { return mof::SameName(member.name, given.name); });
    if (found == declared.members.end()) throw UnknownName(declared, given.name);
    return *found;
}

host::Value Typed(const Declarations& declared, const Declaration& member, const Given& given) {
    mof::TypeName element = member.type;
    element.isArray = false;
    std::optional<host::Value> value =
        host::Typed({CMPI_string, given.text}, host::TypeOf(element));
    if (!value)
        throw UsageError(declared.option + " " + given.name + " must be of type " +
                         mof::ToText(element) + ", not '" + given.text + "'.");
    return *std::move(value);
}

// Adds a value; a further one of the same array becomes its next element.
void Add(const Declarations& declared, const Declaration& member, host::Value value,
         std::vector<host::NamedValue>& values) {
    const auto before = std::find_if(
        values.begin(), values.end(),
        [&](const host::NamedValue& one) { return mof::SameName(one.name, member.name); });
    if (before == values.end()) {
        if (member.type.isArray)
            value = {host::TypeOf(member.type), std::vector<host::Value>{std::move(value)}};
        values.push_back({member.name, std::move(value)});
    } else if (member.type.isArray) {
        std::get<std::vector<host::Value>>(before->value.data).push_back(std::move(value));
    } else {
        throw UsageError(declared.option + " " + member.name + " may be given only once.");
    }
}

std::vector<host::NamedValue> TypedValues(const Declarations& declared,
                                          const std::vector<std::string>& options) {
    std::vector<host::NamedValue> values;
    for (const std::string& option : options) {
        const Given given = Split(declared.option, option);
        if (!declared.isKnown) {
            values.push_back({given.name, {CMPI_string, given.text}});
            continue;
        }
        const Declaration& member = Find(declared, given);
        Add(declared, member, Typed(declared, member, given), values);
    }
    return values;
}

const mof::Method* FindMethod(const mof::Schema& schema, const mof::Class& cls,
                              const std::string& name) {
    for (const auto& method : mof::AllMethods(schema, cls))
        if (mof::SameName(method.member->name, name)) return method.member;
    return nullptr;
}

}  // namespace

std::vector<host::NamedValue> TypedKeys(const mof::Schema& schema, const std::string& className,
                                        const std::vector<std::string>& options) {
    Declarations declared{"--key", "key of " + className, {}};
    if (const mof::Class* const cls = schema.Find(className)) {
        declared.isKnown = true;
        for (const auto& property : mof::AllProperties(schema, *cls))
            if (mof::IsKey(schema, *cls, property.member->name))
                declared.members.push_back({property.member->name, property.member->type});
    }
    return TypedValues(declared, options);
}

std::vector<host::NamedValue> TypedArguments(const mof::Schema& schema,
                                             const std::string& className,
                                             const std::string& method,
                                             const std::vector<std::string>& options) {
    Declarations declared{"--in", "input parameter of " + className + "." + method, {}};
    const mof::Class* const cls = schema.Find(className);
    const mof::Method* const known = cls == nullptr ? nullptr : FindMethod(schema, *cls, method);
    if (known != nullptr) {
        declared.isKnown = true;
        for (const mof::Parameter& parameter : known->parameters)
            if (mof::IsIn(parameter)) declared.members.push_back({parameter.name, parameter.type});
    }
    return TypedValues(declared, options);
}

}  // namespace cli
