// Finds an element by name, in any letter case.
#pragma once

#include <mof/Names.h>

#include <string>
#include <vector>

namespace host {

// The first element of that name, or null.
template <class Named>
const Named* FindByName(const std::vector<Named>& all, const std::string& name) {
    for (const Named& candidate : all)
        if (mof::SameName(candidate.name, name)) return &candidate;
    return nullptr;
}

}  // namespace host
