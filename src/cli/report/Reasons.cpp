#include <cli/Text.h>
#include <cli/report/Names.h>
#include <cli/report/Reasons.h>
#include <platform/service_processor/TransportError.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace cli {

namespace {

// Texts about controllers. Neighbours with the same text share a paragraph.
class Paragraphs {
public:
    void Add(const ControllerResult& controller, const std::string& text) {
        if (text.empty()) return;
        if (groups.empty() || groups.back().text != text) groups.push_back({{}, text});
        groups.back().names.push_back(ControllerName(controller));
    }

    void AppendTo(std::vector<std::string>& paragraphs) const {
        for (const auto& [names, text] : groups)
            paragraphs.push_back(Capitalized(Listed(names)) + ": " + text);
    }

private:
    struct Group {
        std::vector<std::string> names;
        std::string text;
    };

    std::vector<Group> groups;
};

std::string CodeText(const ControllerResult& controller) {
    char text[5];
    std::snprintf(text, sizeof text, "0x%02x", controller.completionCode.value_or(0));
    return text;
}

// Of a controller that was not examined and whose trouble does not tell why.
std::string OutcomeText(Outcome outcome) {
    switch (outcome) {
        case Outcome::NotDelivered:
            return "No answer came.";
        case Outcome::UnusableAnswer:
            return "The answer is too short.";
        case Outcome::Refused:
            return "It refused the request.";
        case Outcome::NotAsked:
            return "It was not asked.";
        default:
            return "";
    }
}

std::string UnjudgedText(const ControllerResult& controller) {
    const std::vector<unsigned int> busses = BussesIn(controller, BusState::Unjudged);
    if (busses.empty()) return "";
    return Capitalized(BusNames(busses)) + (busses.size() == 1 ? " was" : " were") +
           " not judged. ";
}

std::string ReasonOf(const ControllerResult& controller) {
    if (controller.trouble) return UnjudgedText(controller) + controller.trouble->text;
    if (controller.outcome != Outcome::Examined) return OutcomeText(controller.outcome);
    return controller.busses.empty() ? "It reports no bus." : UnjudgedText(controller);
}

// If no trouble has advice, the test's messages may have some.
std::string AdviceOf(const ControllerResult& controller) {
    if (controller.trouble && !controller.trouble->advice.empty())
        return controller.trouble->advice;
    if (IsFullyExamined(controller) || controller.outcome == Outcome::NotAsked) return "";
    const bool isRecommended = controller.message && !controller.message->recommendations.empty();
    return isRecommended ? "Follow its recommendations above, then run the test again."
                         : "Find out why it was not examined in full, then run the test again.";
}

// What came instead of an answer to the command.
std::string Undelivered(const ControllerResult& controller) {
    using enum platform::TroubleCode;
    constexpr std::array kRefusals = {NoSession,
                                      RefusedUser,
                                      RefusedPassword,
                                      RefusedPrivilege,
                                      RefusedAuthentication,
                                      RefusedLogin,
                                      Refused,
                                      Busy};
    const std::string code = controller.trouble ? controller.trouble->code : "";
    if (code == NameOf(UnusableAnswers)) return "no usable answer";
    const bool isRefused =
        std::ranges::any_of(kRefusals, [&](auto refusal) { return code == NameOf(refusal); });
    return isRefused ? "no session" : "no answer";
}

}  // namespace

bool IsFullyExamined(const ControllerResult& controller) {
    return controller.outcome == Outcome::Examined && !controller.trouble &&
           !controller.busses.empty() && BussesIn(controller, BusState::Unjudged).empty();
}

std::string ShortReason(const ControllerResult& controller) {
    switch (controller.outcome) {
        case Outcome::NotDelivered:
            return "not examined: " + Undelivered(controller);
        case Outcome::UnusableAnswer:
            return "not examined: answer too short";
        case Outcome::Refused:
            return "not examined: refused (" + CodeText(controller) + ")";
        default:
            return "not asked";
    }
}

std::vector<std::string> Reasons(const RunResult& result, bool askedAll) {
    std::vector<std::string> reasons;
    for (const platform::Trouble& trouble : result.troubles) reasons.push_back(trouble.text);
    Paragraphs ofControllers;
    for (const ControllerResult& controller : result.controllers) {
        ofControllers.Add(controller, ReasonOf(controller));
        if (controller.hasUnusedByte)
            ofControllers.Add(controller,
                              "The second status byte stands for no bus and was not examined.");
    }
    ofControllers.AppendTo(reasons);
    if (askedAll && result.endOfRecord)
        reasons.push_back("A CIM client's run would have ended at " +
                          NodeName(*result.endOfRecord) +
                          ": its record tells nothing of later controllers.");
    return reasons;
}

std::vector<std::string> Advice(const RunResult& result) {
    std::vector<std::string> advice;
    for (const platform::Trouble& trouble : result.troubles)
        if (!trouble.advice.empty()) advice.push_back(trouble.advice);
    Paragraphs ofControllers;
    for (const ControllerResult& controller : result.controllers)
        ofControllers.Add(controller, AdviceOf(controller));
    ofControllers.AppendTo(advice);
    return advice;
}

}  // namespace cli
