// What `bmci2c doctor` prints.
#pragma once

#include <cli/Json.h>
#include <cli/Terminal.h>
#include <cli/doctor/Check.h>

#include <string>

namespace cli {

// "OK", "WARN" or "FAIL", the name, the text and the advice: a paragraph for each. Checks that
// failed for the same reason share one.
std::string ChecksText(const Checks& checks, const Terminal& terminal);

// {"format_version": 1, "version": ..., "verdict": "ok", "warning" or "failed", "checks": [...]},
// each check with "check" (its name), "status" ("OK", "WARN" or "FAIL"), "text" and "advice".
Json ChecksJson(const Checks& checks);

}  // namespace cli
