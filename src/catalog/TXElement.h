// A named property of the catalog: one value, an array of values, and values by 16-bit index.
// Getters return copies. What is missing reads as an empty string.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

class TXElement {
public:
    TXElement() = default;
    explicit TXElement(std::string name);
    TXElement(const TXElement& source) = default;  // an exact copy
    virtual ~TXElement() = default;

    // Copies everything but the map entries whose value is empty.
    TXElement& operator=(const TXElement& source);

    unsigned short GetIndex() const { return currentIndex; }
    bool IsIndex(unsigned short index) const { return currentIndex == index; }
    void SetIndex(unsigned short index) { currentIndex = index; }
    void ResetIndex() { currentIndex = 0; }

    std::size_t GetSizeOfValueArray() const { return valueArray.size(); }
    std::size_t GetSizeOfValueMap() const { return valueMap.size(); }

    std::string GetValue() const { return value; }
    std::string GetPropertyName() const { return propertyName; }
    std::string GetValueFromMap(unsigned short index) const;
    std::string GetValueFromArray(unsigned long position) const;  // from 0
    std::map<unsigned short, std::string> GetValueMap() const { return valueMap; }
    std::vector<std::string> GetValueArray() const { return valueArray; }

    void SetValue(std::string newValue);
    void SetPropertyName(std::string newName);

    // Appends to the value array.
    void AddValue(std::string newValue);
    // Adds to the value map; the first value of an index stays.
    void AddValue(unsigned short index, std::string newValue);
    void AddValue(std::pair<unsigned short, std::string> entry);

    // Adds the entries that are not empty to the value map; the first value of an index stays.
    void SetValueMap(std::map<unsigned short, std::string> entries);
    // Appends to the value array.
    void SetValueArray(std::vector<std::string> values);

    void ClearValue() { value.clear(); }
    void ClearValueArray() { valueArray.clear(); }
    void ClearValueMap() { valueMap.clear(); }
    // Clears all but the property name.
    void ClearAll();

private:
    std::string propertyName;
    std::string value;
    std::vector<std::string> valueArray;
    unsigned short currentIndex = 0;  // the index that the owner is working on
    std::map<unsigned short, std::string> valueMap;
};
