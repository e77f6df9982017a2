#include <catalog/TXMessage.h>

#include <utility>

TXMessage& TXMessage::operator=(const TXMessage& source) {
    if (this == &source) {
        return *this;
    }
    SetRecommendationArray(source.recommendations);
    TXElement::operator=(source);
    return *this;
}

void TXMessage::AddRecommendation(unsigned int number, std::string text) {
    recommendations.emplace(number, std::move(text));
}

void TXMessage::SetRecommendationArray(std::multimap<unsigned int, std::string> entries) {
    for (auto& [number, text] : entries) {
        AddRecommendation(number, std::move(text));
    }
}

std::vector<std::string> TXMessage::GetRecommendations(unsigned int number) const {
    std::vector<std::string> texts;
    const auto [first, last] = recommendations.equal_range(number);
    for (auto entry = first; entry != last; ++entry) {
        texts.push_back(entry->second);
    }
    return texts;
}

void TXMessage::ClearAll() {
    recommendations.clear();
    TXElement::ClearAll();
}
