// An instance as lines "Name = value", one per feature that has a value, in class order.
#pragma once

#include <framework/Instance.h>

#include <string>
#include <vector>

// Texts are quoted, arrays stand in braces, a reference shows the class of its target.
std::vector<std::string> AssignedFeatures(const cimple::Instance& instance);
