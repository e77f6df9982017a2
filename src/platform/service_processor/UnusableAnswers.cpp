#include <platform/service_processor/UnusableAnswers.h>

namespace platform {

namespace {

std::string FlawInWords(Flaw flaw) {
    switch (flaw) {
        case Flaw::TooShort:
            return "that ended too early";
        case Flaw::Checksum:
            return "with a wrong checksum";
        case Flaw::Session:
            return "of another session";
        case Flaw::Authentication:
            return "with a missing or wrong authentication code";
        case Flaw::Encryption:
            return "without encryption";
        case Flaw::Sequence:
            return "with another sequence number";
        case Flaw::Responder:
            return "from another responder address";
        case Flaw::NetworkFunction:
            return "with another network function";
        case Flaw::Command:
            return "to another command";
        case Flaw::Late:
            return "to an earlier request";
        case Flaw::Unreadable:
            break;
    }
    return "that could not be read";
}

}  // namespace

std::string UnusableAnswers::InWords() const {
    std::string words;
    for (const auto& [flaw, count] : counts) {
        if (!words.empty()) words += ", ";
        words +=
            std::to_string(count) + (count == 1 ? " answer " : " answers ") + FlawInWords(flaw);
    }
    return words;
}

}  // namespace platform
