// MOF's number literals.
#pragma once

#include <mof/Model.h>
#include <mof/Place.h>

#include <string_view>

namespace mof {

// The value of a literal such as "-12", "0x1F", "017", "101b" or "1.5e3": a signed integer where it
// fits, else an unsigned one, or a real. Throws Error with the place for anything else.
Scalar ParseNumber(std::string_view spelling, const Place& place);

}  // namespace mof
