#include <cli/ClassAdvice.h>
#include <cli/Spelling.h>

#include <algorithm>
#include <cctype>

namespace cli {

namespace {

constexpr const char* kPrefix = "QUVSG_BMCI2C_";

std::string LowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char letter) {
        return static_cast<char>(std::tolower(letter));
    });
    return text;
}

}  // namespace

std::string ClassAdvice(const std::string& className, const host::Status& status,
                        const std::vector<std::string>& known) {
    if (status.code != CMPI_RC_ERR_INVALID_CLASS) return "";
    std::vector<std::string> names;
    names.reserve(known.size());
    for (const std::string& name : known) names.push_back(LowerCase(name));
    const std::string prefix = LowerCase(kPrefix);
    const std::string word = LowerCase(className);
    const std::string nearest = Nearest(word.starts_with(prefix) ? word : prefix + word, names);
    const auto found = std::ranges::find(names, nearest);
    if (found == names.end()) return "";
    return "Did you mean " + known[static_cast<std::size_t>(found - names.begin())] + "?";
}

std::vector<std::string> RegisteredClasses(const host::Host& host) {
    std::vector<std::string> names;
    for (const host::Registration& one : host.Registrations()) names.push_back(one.className);
    return names;
}

std::string NoInstanceText(const std::string& className) {
    return className +
           " has no instance. Records exist only in the process that ran the test: use 'bmci2c "
           "enumerate " +
           className + " --after-runs 1' to run it first.";
}

}  // namespace cli
