// An error as JSON.
#pragma once

#include <cli/Errors.h>
#include <cli/Json.h>

namespace cli {

// {"format_version": 1, "verdict": "error", "error": {"text": ..., "advice": ...}}. What a command
// prints with --json when an error ends it.
Json ErrorJson(const Problem& problem);

}  // namespace cli
