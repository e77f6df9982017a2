#include <catalog/TXElement.h>

TXElement::TXElement(std::string name) : propertyName(std::move(name)) {}

TXElement& TXElement::operator=(const TXElement& source) {
    if (this == &source) {
        return *this;
    }
    propertyName.clear();
    ClearAll();
    propertyName = source.propertyName;
    currentIndex = source.currentIndex;
    value = source.value;
    SetValueMap(source.valueMap);
    SetValueArray(source.valueArray);
    return *this;
}

std::string TXElement::GetValueFromMap(unsigned short index) const {
    const auto entry = valueMap.find(index);
    return entry == valueMap.end() ? std::string() : entry->second;
}

std::string TXElement::GetValueFromArray(unsigned long position) const {
    return position < valueArray.size() ? valueArray[position] : std::string();
}

void TXElement::SetValue(std::string newValue) { value = std::move(newValue); }

void TXElement::SetPropertyName(std::string newName) { propertyName = std::move(newName); }

void TXElement::AddValue(std::string newValue) { valueArray.push_back(std::move(newValue)); }

void TXElement::AddValue(unsigned short index, std::string newValue) {
    valueMap.emplace(index, std::move(newValue));
}

void TXElement::AddValue(std::pair<unsigned short, std::string> entry) {
    AddValue(entry.first, std::move(entry.second));
}

void TXElement::SetValueMap(std::map<unsigned short, std::string> entries) {
    for (auto& [index, text] : entries) {
        if (!text.empty()) {
            AddValue(index, std::move(text));
        }
    }
}

void TXElement::SetValueArray(std::vector<std::string> values) {
    for (std::string& text : values) {
        AddValue(std::move(text));
    }
}

void TXElement::ClearAll() {
    ResetIndex();
    ClearValue();
    ClearValueArray();
    ClearValueMap();
}
