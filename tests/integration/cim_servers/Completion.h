// What a server makes of the objects that a provider hands it.
#pragma once

#include <Fake_Objects.h>
#include <host/schema/ClassRepository.h>

#include <set>
#include <string>

#include "Personality.h"

class Completion {
public:
    Completion(const Personality& serverPersonality, const host::ClassRepository& repository)
        : personality(serverPersonality), classes(repository) {}

    // Takes a property out of the server's form of every class.
    void LeaveOut(const std::string& property) { missing.insert(property); }

    // Puts the keys in the order of the class; those without a value become empty texts.
    void Complete(fake::Path& path) const;

    // Properties that were not set at all get the default value of the server's form of the class,
    // those that it lacks are dropped or kept, and the path gets the keys.
    void Complete(fake::Instance& instance) const;

private:
    const Personality& personality;
    const host::ClassRepository& classes;
    std::set<std::string> missing;
};

// The properties for which published classes have a default value, and that value as this double
// writes it.
extern const std::set<std::string> kDefaultedProperties;
inline constexpr char kServersDefault[] = "the server's default";
