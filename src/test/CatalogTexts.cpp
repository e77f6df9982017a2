#include <test/CatalogTexts.h>
#include <test/MessageNumbers.h>

namespace {

unsigned short HeadingOf(int kind) {
    switch (kind) {
        case kBusFaultMessage:
            return kBusFaultHeading;
        case kNotCompletedMessage:
            return kNotCompletedHeading;
        default:
            return kPassHeading;
    }
}

// With leading zeros, and without the separators that a host's locale may put between digits.
std::string ThreeDigitsOrMore(std::int32_t number) {
    const std::string digits = std::to_string(number);
    return digits.size() < 3 ? std::string(3 - digits.size(), '0') + digits : digits;
}

}  // namespace

// "166-NUMBER-CONTROLLER HEADING TEXT".
ResultMessage CatalogTexts::Message(int kind, unsigned short number,
                                    std::int32_t controller) const {
    ResultMessage message{.line = "166-" + ThreeDigitsOrMore(number) + '-' +
                                  ThreeDigitsOrMore(controller) + ' ' +
                                  general.GetValueFromMap(HeadingOf(kind)) + Text(number),
                          .recommendations = {}};
    if (kind != kPassMessage) message.recommendations = Recommendations(number);
    return message;
}

CatalogTexts::Source CatalogTexts::SourceOfText(unsigned short number) const {
    if (!own.GetValueFromMap(number).empty()) return Source::Machine;
    return general.GetValueFromMap(number).empty() ? Source::Fallback : Source::Generic;
}

CatalogTexts::Source CatalogTexts::SourceOfRecommendations(unsigned short number) const {
    return own.GetRecommendations(number).empty() ? Source::Generic : Source::Machine;
}

std::string CatalogTexts::Text(unsigned short number) const {
    switch (SourceOfText(number)) {
        case Source::Machine:
            return own.GetValueFromMap(number);
        case Source::Generic:
            return general.GetValueFromMap(number);
        default:
            return general.GetValueFromMap(kFallbackText) +
                   ": message num: " + std::to_string(number);
    }
}

std::vector<std::string> CatalogTexts::Recommendations(unsigned short number) const {
    const bool isOwn = SourceOfRecommendations(number) == Source::Machine;
    return (isOwn ? own : general).GetRecommendations(number);
}
