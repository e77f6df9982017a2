// A simulated node that differs from the default in what `change` sets.
#pragma once

#include <platform/settings/SimulatedProfile.h>

template <class Change>
platform::SimulatedNode NodeWith(Change change) {
    platform::SimulatedNode node;
    change(node);
    return node;
}
