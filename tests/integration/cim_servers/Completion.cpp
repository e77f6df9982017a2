#include "Completion.h"

#include <strings.h>

#include <algorithm>
#include <utility>

namespace {

const CMPIData* Find(const fake::Named_Data& list, const std::string& name) {
    const auto found = std::find_if(list.begin(), list.end(), [&](const auto& entry) {
        return strcasecmp(entry.first.c_str(), name.c_str()) == 0;
    });
    return found == list.end() ? nullptr : &found->second;
}

bool IsNull(const CMPIData& data) { return (data.state & CMPI_nullValue) != 0; }

}  // namespace

const std::set<std::string> kDefaultedProperties = {"TimeBeforeRemoval", "SupportedTestWarnings",
                                                    "OverwritePolicy", "LogState"};

void Completion::Complete(fake::Path& path) const {
    const fake::Named_Data given = std::exchange(path.keys, {});
    for (const host::PropertyInfo& property : classes.Find(path.className)->properties) {
        if (!property.isKey) continue;
        if (const CMPIData* const value = Find(given, property.name))
            path.with_key(property.name.c_str(), *value);
        else if (property.type == CMPI_string)
            path.with_key(property.name.c_str(), path.arena->string_data(""));
    }
}

void Completion::Complete(fake::Instance& instance) const {
    for (const host::PropertyInfo& property : classes.Find(instance.path->className)->properties) {
        if (Find(instance.properties, property.name) == nullptr &&
            kDefaultedProperties.contains(property.name))
            instance.with(property.name.c_str(), instance.arena->string_data(kServersDefault));
        const CMPIData* const value = Find(instance.properties, property.name);
        if (property.isKey && value != nullptr && !IsNull(*value) &&
            Find(instance.path->keys, property.name) == nullptr)
            instance.path->with_key(property.name.c_str(), *value);
    }
    Complete(*instance.path);
    if (personality.sendsUnknownProperties) return;
    std::erase_if(instance.properties,
                  [this](const auto& entry) { return missing.contains(entry.first); });
}
