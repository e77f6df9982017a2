#include <cli/Errors.h>
#include <cli/doctor/Check.h>

#include <algorithm>

namespace cli {

namespace {

// A check is one line, whatever a file's name or a library's text holds.
std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char letter) { return letter == '\n' || letter == '\r'; },
        ' ');
    return text;
}

}  // namespace

Check Good(const std::string& name, const std::string& text) {
    return {name, Grade::Ok, OneLine(text), ""};
}

Check Warning(const std::string& name, const std::string& text, const std::string& advice) {
    return {name, Grade::Warn, OneLine(text), OneLine(advice)};
}

Check Bad(const std::string& name, const std::string& text, const std::string& advice) {
    return {name, Grade::Fail, OneLine(text), OneLine(advice)};
}

Check BadFrom(const std::string& name, const std::string& trouble, const std::string& advice) {
    const Problem problem = SplitMessage(trouble);
    return Bad(name, problem.text, problem.advice.empty() ? advice : problem.advice);
}

Check BadFrom(const std::string& name, const platform::Trouble& trouble,
              const std::string& advice) {
    return Bad(name, trouble.text, trouble.advice.empty() ? advice : trouble.advice);
}

Check NotExamined(const std::string& name, const std::string& why, const std::string& otherCheck) {
    return Bad(name, why, "Fix what the check \"" + otherCheck + "\" tells first.");
}

Grade WorstOf(const Checks& checks) {
    Grade worst = Grade::Ok;
    for (const Check& check : checks) worst = std::max(worst, check.grade);
    return worst;
}

}  // namespace cli
