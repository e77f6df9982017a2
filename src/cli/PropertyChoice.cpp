#include <cli/Errors.h>
#include <cli/PropertyChoice.h>
#include <cli/Spelling.h>
#include <mof/Names.h>

#include <algorithm>

namespace cli {

namespace {

bool IsAmong(const std::vector<std::string>& names, const std::string& name) {
    return std::ranges::any_of(names,
                               [&](const std::string& one) { return mof::SameName(one, name); });
}

// Of the class and its subclasses, whose instances are enumerated with it.
std::vector<std::string> PropertiesOf(const mof::Schema& schema, const std::string& className) {
    std::vector<std::string> names;
    for (const mof::Class& cls : schema.classes) {
        if (!mof::IsSubclass(schema, className, cls.name)) continue;
        for (const auto& property : mof::AllProperties(schema, cls))
            if (!IsAmong(names, property.member->name)) names.push_back(property.member->name);
    }
    return names;
}

std::string UnknownText(const std::string& className, const std::string& name) {
    return className + " has no property '" + name + "'.";
}

std::string AdviceText(const std::string& className, const std::string& nearest) {
    if (!nearest.empty()) return "Did you mean '" + nearest + "'?";
    return "Run 'bmci2c enumerate " + className + "' without --property to see all.";
}

}  // namespace

void RequireProperties(const mof::Schema& schema, const std::string& className,
                       const std::vector<std::string>& names) {
    if (names.empty() || schema.Find(className) == nullptr) return;
    const std::vector<std::string> known = PropertiesOf(schema, className);
    for (const std::string& name : names) {
        if (IsAmong(known, name)) continue;
        const std::string nearest = NearestInAnyCase(name, known);
        throw UsageError(UnknownText(className, name), AdviceText(className, nearest));
    }
}

void KeepOnly(const std::vector<std::string>& names, host::Instance& instance) {
    if (names.empty()) return;
    std::erase_if(instance.properties,
                  [&](const host::NamedValue& property) { return !IsAmong(names, property.name); });
}

}  // namespace cli
