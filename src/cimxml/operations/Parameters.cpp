#include <cimxml/operations/Parameters.h>
#include <host/NumberText.h>
#include <host/Status.h>
#include <mof/Names.h>

#include <algorithm>

namespace cimxml {

namespace {

[[noreturn]] void Fail(const std::string& text) {
    throw host::Failure(CMPI_RC_ERR_INVALID_PARAMETER, text);
}

[[noreturn]] void FailMissing(std::string_view name) {
    Fail("The parameter '" + std::string(name) + "' is missing.");
}

}  // namespace

Parameters::Parameters(const Request& callingRequest, const ParameterNames& known)
    : request(callingRequest) {
    for (const Parameter& parameter : request.parameters) {
        const auto isIt = [&](std::string_view name) {
            return mof::SameName(name, parameter.name);
        };
        if (std::none_of(known.begin(), known.end(), isIt))
            Fail("The operation '" + request.method + "' has no parameter '" + parameter.name +
                 "'.");
        if (FindParameter(parameter.name) != &parameter)
            Fail("The parameter '" + parameter.name + "' is given twice.");
    }
}

const Parameter* Parameters::FindParameter(std::string_view name) const {
    const auto& all = request.parameters;
    const auto found = std::find_if(all.begin(), all.end(), [&](const Parameter& candidate) {
        return mof::SameName(candidate.name, name);
    });
    return found == all.end() ? nullptr : &*found;
}

template <class Kind>
const Kind* Parameters::Find(std::string_view name, const char* kind) const {
    const Parameter* const parameter = FindParameter(name);
    if (!parameter || std::holds_alternative<std::monostate>(parameter->value)) return nullptr;
    const Kind* const value = std::get_if<Kind>(&parameter->value);
    if (!value) Fail("The parameter '" + std::string(name) + "' is not " + kind + ".");
    return value;
}

bool Parameters::Flag(std::string_view name, bool whenAbsent) const {
    const auto* const text = Find<std::string>(name, "a boolean");
    if (!text) return whenAbsent;
    if (mof::SameName(*text, "true")) return true;
    if (mof::SameName(*text, "false")) return false;
    Fail("The parameter '" + std::string(name) + "' is neither TRUE nor FALSE.");
}

std::string Parameters::Text(std::string_view name) const {
    const auto* const text = Find<std::string>(name, "a text");
    if (!text) FailMissing(name);
    return *text;
}

std::optional<std::uint32_t> Parameters::Number(std::string_view name) const {
    const auto* const text = Find<std::string>(name, "a number");
    if (!text) return std::nullopt;
    const auto number = host::NumberIn<std::uint32_t>(*text);
    if (!number)
        Fail("The parameter '" + std::string(name) + "' is not a number from 0 to 4294967295.");
    return number;
}

std::string Parameters::Filter(std::string_view name) const {
    const auto* const text = Find<std::string>(name, "a text");
    return text ? *text : std::string();
}

std::string Parameters::Class(std::string_view name) const {
    const auto* const cls = Find<ClassName>(name, "the name of a class");
    return cls ? cls->name : std::string();
}

std::string Parameters::RequiredClass(std::string_view name) const {
    const auto* const cls = Find<ClassName>(name, "the name of a class");
    if (!cls) FailMissing(name);
    return cls->name;
}

host::ObjectPath Parameters::RequiredInstance(std::string_view name) const {
    const auto* const path = Find<host::ObjectPath>(name, "the name of an instance");
    if (!path) FailMissing(name);
    return *path;
}

Parameters::Object Parameters::RequiredObject(std::string_view name) const {
    const Parameter* const parameter = FindParameter(name);
    if (parameter && std::holds_alternative<ClassName>(parameter->value))
        return {{{}, RequiredClass(name), {}}, true};
    return {RequiredInstance(name), false};
}

std::optional<std::vector<std::string>> Parameters::Texts(std::string_view name) const {
    const auto* const texts = Find<std::vector<std::string>>(name, "an array of texts");
    return texts ? std::optional(*texts) : std::nullopt;
}

}  // namespace cimxml
