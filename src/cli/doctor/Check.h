// One thing that `bmci2c doctor` looked at.
#pragma once

#include <string>
#include <vector>

namespace cli {

struct Check {
    std::string name;  // what was looked at; scripts rely on it
    bool ok = true;
    std::string text;    // full sentences, in one line
    std::string advice;  // what to do; empty when all is well
};

using Checks = std::vector<Check>;

Check Good(const std::string& name, const std::string& text);
Check Bad(const std::string& name, const std::string& text, const std::string& advice);

// A trouble whose first sentence says what is wrong and whose other ones say what to do; `advice`
// stands in where there are no others.
Check BadFrom(const std::string& name, const std::string& trouble, const std::string& advice);

}  // namespace cli
