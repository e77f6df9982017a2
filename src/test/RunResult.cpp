#include <test/RunResult.h>

std::string TextOf(const ResultMessage& message) {
    std::string text = message.line;
    if (!message.recommendations.empty()) {
        text += "\nRecommendations:\n";
    }
    for (const std::string& recommendation : message.recommendations) {
        text += '\n' + recommendation;
    }
    return text;
}

std::string NameOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::Passed:
            return "passed";
        case Verdict::Failed:
            return "failed";
        case Verdict::Interrupted:
            return "interrupted";
        default:
            return "not_completed";
    }
}
