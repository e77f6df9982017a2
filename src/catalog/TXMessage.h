// A message of the catalog: numbered texts (the element's value map) and numbered recommendations.
#pragma once

#include <catalog/TXElement.h>

#include <map>
#include <string>
#include <vector>

class TXMessage : public TXElement {
public:
    TXMessage() = default;
    TXMessage(const TXMessage& source) = default;  // an exact copy

    // Assigns the element and adds the source's recommendations to those already held. For a clean
    // copy, call ClearAll first or assign to a fresh message.
    TXMessage& operator=(const TXMessage& source);

    // Several texts may share a number, equal ones too; they keep their order.
    void AddRecommendation(unsigned int number, std::string text);
    // Adds all entries, in their order.
    void SetRecommendationArray(std::multimap<unsigned int, std::string> entries);

    // The texts under a number, in the order in which they were added.
    std::vector<std::string> GetRecommendations(unsigned int number) const;
    std::multimap<unsigned int, std::string> GetAllRecommendations() const {
        return recommendations;
    }

    // Clears all but the property name.
    void ClearAll();

private:
    std::multimap<unsigned int, std::string> recommendations;
};
