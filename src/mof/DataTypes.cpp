#include <mof/DataTypes.h>
#include <mof/Names.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace mof {

namespace {

struct DataTypeKeyword {
    std::string_view keyword;
    DataType type;
};

constexpr std::array<DataTypeKeyword, 14> kKeywords{{
    {"boolean", DataType::Boolean},
    {"uint8", DataType::UInt8},
    {"sint8", DataType::SInt8},
    {"uint16", DataType::UInt16},
    {"sint16", DataType::SInt16},
    {"uint32", DataType::UInt32},
    {"sint32", DataType::SInt32},
    {"uint64", DataType::UInt64},
    {"sint64", DataType::SInt64},
    {"real32", DataType::Real32},
    {"real64", DataType::Real64},
    {"char16", DataType::Char16},
    {"string", DataType::String},
    {"datetime", DataType::DateTime},
}};

constexpr std::size_t kDateTimeLength = 25;

template <class Integer>
bool FitsInteger(const Scalar& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        return std::in_range<Integer>(*number);
    }
    const auto* number = std::get_if<std::uint64_t>(&value);
    return number != nullptr && std::in_range<Integer>(*number);
}

bool FitsReal(const Scalar& value, double largest) {
    if (const auto* number = std::get_if<double>(&value)) {
        return std::abs(*number) <= largest;
    }
    return std::holds_alternative<std::int64_t>(value) ||
           std::holds_alternative<std::uint64_t>(value);
}

bool IsOneChar16(const std::string& text) {
    constexpr std::size_t kLongestInUtf8 = 3;
    const auto continues = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
    };
    return !text.empty() && text.size() <= kLongestInUtf8 &&
           std::all_of(text.begin() + 1, text.end(), continues);
}

bool FitsScalar(const Scalar& value, DataType type) {
    if (std::holds_alternative<std::monostate>(value)) {
        return true;
    }
    const auto* text = std::get_if<std::string>(&value);
    switch (type) {
        case DataType::Boolean:
            return std::holds_alternative<bool>(value);
        case DataType::UInt8:
            return FitsInteger<std::uint8_t>(value);
        case DataType::SInt8:
            return FitsInteger<std::int8_t>(value);
        case DataType::UInt16:
            return FitsInteger<std::uint16_t>(value);
        case DataType::SInt16:
            return FitsInteger<std::int16_t>(value);
        case DataType::UInt32:
            return FitsInteger<std::uint32_t>(value);
        case DataType::SInt32:
            return FitsInteger<std::int32_t>(value);
        case DataType::UInt64:
            return FitsInteger<std::uint64_t>(value);
        case DataType::SInt64:
            return FitsInteger<std::int64_t>(value);
        case DataType::Real32:
            return FitsReal(value, std::numeric_limits<float>::max());
        case DataType::Real64:
            return FitsReal(value, std::numeric_limits<double>::max());
        case DataType::Char16:
            return text != nullptr && IsOneChar16(*text);
        case DataType::DateTime:
            return text != nullptr && text->size() == kDateTimeLength;
        case DataType::String:
        case DataType::Reference:
            return text != nullptr;
    }
    return false;
}

}  // namespace

std::optional<DataType> FindDataType(std::string_view keyword) {
    const auto found = std::find_if(kKeywords.begin(), kKeywords.end(), [&](const auto& entry) {
        return SameName(entry.keyword, keyword);
    });
    return found == kKeywords.end() ? std::nullopt : std::optional(found->type);
}

std::string ToText(const TypeName& type) {
    const auto found = std::find_if(kKeywords.begin(), kKeywords.end(),
                                    [&](const auto& entry) { return entry.type == type.type; });
    const std::string name =
        found == kKeywords.end() ? type.referenceClass + " REF" : std::string(found->keyword);
    return type.isArray ? name + "[]" : name;
}

bool Fits(const Literal& literal, const TypeName& type) {
    if (const auto* scalar = std::get_if<Scalar>(&literal)) {
        return std::holds_alternative<std::monostate>(*scalar) ||
               (!type.isArray && FitsScalar(*scalar, type.type));
    }
    const auto& elements = std::get<std::vector<Scalar>>(literal);
    return type.isArray &&
           std::all_of(elements.begin(), elements.end(),
                       [&](const Scalar& element) { return FitsScalar(element, type.type); });
}

}  // namespace mof
