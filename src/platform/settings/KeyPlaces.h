// Where the keys of a table stand.
#pragma once

#include <functional>
#include <map>
#include <string>

namespace platform {

// "FILE:LINE" of each key that is there.
using KeyPlaces = std::map<std::string, std::string, std::less<>>;

}  // namespace platform
