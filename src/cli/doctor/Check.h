// One check of `bmci2c doctor`.
#pragma once

#include <platform/diagnostics/Trouble.h>

#include <string>
#include <vector>

namespace cli {

enum class Grade { Ok, Warn, Fail };

struct Check {
    std::string name;  // what was looked at; scripts rely on it
    Grade grade = Grade::Ok;
    std::string text;    // full sentences, in one line
    std::string advice;  // what to do; empty when all is well
};

using Checks = std::vector<Check>;

Check Good(const std::string& name, const std::string& text);
Check Warning(const std::string& name, const std::string& text, const std::string& advice);
Check Bad(const std::string& name, const std::string& text, const std::string& advice);

// A failed check from a text: its first sentence is the error, the others are the advice; without
// others, `advice` is.
Check BadFrom(const std::string& name, const std::string& trouble, const std::string& advice);

// A failed check from a trouble; `advice` is used if the trouble has none.
Check BadFrom(const std::string& name, const platform::Trouble& trouble, const std::string& advice);

// A check that depends on another one, which has failed.
Check NotExamined(const std::string& name, const std::string& why, const std::string& otherCheck);

// The worst of them; OK when there are none.
Grade WorstOf(const Checks& checks);

}  // namespace cli
