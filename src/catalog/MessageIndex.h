// The index of a property in the catalog.
#pragma once

#include <optional>
#include <string>

// Its number: decimal digits behind one sign at most, in 32 bits. Nothing for any other text.
std::optional<unsigned int> MessageNumber(const std::string& index);
