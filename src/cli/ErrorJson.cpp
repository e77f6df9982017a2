#include <cli/ErrorJson.h>

namespace cli {

Json ErrorJson(const Problem& problem) {
    return {{"format_version", kFormatVersion},
            {"verdict", "error"},
            {"error", {{"text", problem.text}, {"advice", problem.advice}}}};
}

}  // namespace cli
