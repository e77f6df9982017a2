#include <cli/Printable.h>
#include <cli/Text.h>
#include <cli/doctor/ChecksOutput.h>

#include <algorithm>

namespace cli {

namespace {

constexpr std::size_t kHanging = 6;  // the longest grade and two blanks

std::string GradeText(Grade grade) {
    switch (grade) {
        case Grade::Ok:
            return "OK";
        case Grade::Warn:
            return "WARN";
        default:
            return "FAIL";
    }
}

std::string VerdictText(Grade worst) {
    switch (worst) {
        case Grade::Ok:
            return "ok";
        case Grade::Warn:
            return "warning";
        default:
            return "failed";
    }
}

std::string Coloured(Grade grade, const Terminal& terminal) {
    switch (grade) {
        case Grade::Ok:
            return terminal.Green(GradeText(grade));
        case Grade::Warn:
            return terminal.Yellow(GradeText(grade));
        default:
            return terminal.Red(GradeText(grade));
    }
}

// Checks that failed for one cause become one, which has all their names.
Checks WithoutRepeats(const Checks& checks) {
    Checks told;
    for (const Check& check : checks) {
        const auto same = std::ranges::find_if(told, [&](const Check& other) {
            return check.grade == Grade::Fail && other.grade == check.grade &&
                   other.text == check.text && other.advice == check.advice;
        });
        if (same == told.end())
            told.push_back(check);
        else
            same->name += ", " + check.name;
    }
    return told;
}

}  // namespace

std::string ChecksText(const Checks& checks, const Terminal& terminal) {
    std::string text;
    for (const Check& check : WithoutRepeats(checks)) {
        const std::string grade = GradeText(check.grade);
        std::string line = check.name + ": " + check.text;
        if (!check.advice.empty()) line += " " + check.advice;
        text += Coloured(check.grade, terminal) +
                Wrap(PrintableLine(line), terminal.width, kHanging).substr(grade.size());
    }
    return text;
}

Json ChecksJson(const Checks& checks) {
    Json array = Json::array();
    for (const Check& check : checks)
        array.push_back({{"check", check.name},
                         {"status", GradeText(check.grade)},
                         {"text", check.text},
                         {"advice", check.advice}});
    return {{"format_version", kFormatVersion},
            {"version", BMCI2C_VERSION},
            {"verdict", VerdictText(WorstOf(checks))},
            {"checks", std::move(array)}};
}

}  // namespace cli
