// A run as JSON: docs/json.md.
#pragma once

#include <cli/Json.h>
#include <cli/run/TestRun.h>

namespace cli {

// The object of format 1, which schema run.schema.json describes.
Json RunJson(const TestRun& run);

}  // namespace cli
