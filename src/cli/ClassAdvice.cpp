#include <cli/ClassAdvice.h>
#include <cli/Spelling.h>
#include <mof/Names.h>

namespace cli {

namespace {

constexpr const char* kPrefix = "QUVSG_BMCI2C_";

}  // namespace

std::string ClassAdvice(const std::string& className, const host::Status& status,
                        const std::vector<std::string>& known) {
    if (status.code != CMPI_RC_ERR_INVALID_CLASS) return "";
    const bool hasPrefix = mof::FoldedName(className).starts_with(mof::FoldedName(kPrefix));
    const std::string nearest =
        NearestInAnyCase(hasPrefix ? className : kPrefix + className, known);
    return nearest.empty() ? "" : "Did you mean " + nearest + "?";
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
