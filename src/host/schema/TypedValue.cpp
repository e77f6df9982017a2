#include <host/NumberText.h>
#include <host/schema/DateTimeText.h>
#include <host/schema/TypedValue.h>
#include <mof/Names.h>

#include <limits>
#include <type_traits>
#include <utility>

namespace host {

namespace {

// The value as a number of the type that stores `Limits`, if it lies within the limits.
template <class Limits>
std::optional<Value::Data> AsInteger(const Value::Data& data) {
    using Stored = std::conditional_t<std::is_signed_v<Limits>, std::int64_t, std::uint64_t>;
    const auto within = [](auto number) -> std::optional<Value::Data> {
        if (!std::in_range<Limits>(number)) return std::nullopt;
        return static_cast<Stored>(number);
    };
    if (const auto* number = std::get_if<std::int64_t>(&data)) return within(*number);
    if (const auto* number = std::get_if<std::uint64_t>(&data)) return within(*number);
    if (const auto* text = std::get_if<std::string>(&data))
        if (const auto number = NumberIn<Stored>(*text)) return within(*number);
    return std::nullopt;
}

std::optional<Value::Data> AsReal(const Value::Data& data) {
    if (const auto* real = std::get_if<double>(&data)) return *real;
    if (const auto* number = std::get_if<std::int64_t>(&data)) return static_cast<double>(*number);
    if (const auto* number = std::get_if<std::uint64_t>(&data)) return static_cast<double>(*number);
    if (const auto* text = std::get_if<std::string>(&data)) return NumberIn<double>(*text);
    return std::nullopt;
}

std::optional<Value::Data> AsBoolean(const Value::Data& data) {
    if (std::holds_alternative<bool>(data)) return data;
    const auto* text = std::get_if<std::string>(&data);
    if (text && mof::SameName(*text, "true")) return true;
    if (text && mof::SameName(*text, "false")) return false;
    return std::nullopt;
}

std::optional<Value::Data> AsDateTime(const Value::Data& data) {
    const auto* text = std::get_if<std::string>(&data);
    if (!text || !IsDateTime(*text)) return std::nullopt;
    return data;
}

std::optional<Value::Data> AsReference(const Value::Data& data) {
    if (std::holds_alternative<std::shared_ptr<const ObjectPath>>(data)) return data;
    const auto* text = std::get_if<std::string>(&data);
    if (!text) return std::nullopt;
    auto path = ParseObjectPath(*text);
    if (!path) return std::nullopt;
    return std::make_shared<const ObjectPath>(std::move(*path));
}

template <class Alternative>
std::optional<Value::Data> AsItIs(const Value::Data& data) {
    if (!std::holds_alternative<Alternative>(data)) return std::nullopt;
    return data;
}

std::optional<Value::Data> AsScalar(const Value::Data& data, CMPIType type) {
    switch (type) {
        case CMPI_boolean:
            return AsBoolean(data);
        case CMPI_char16:
            return AsInteger<std::uint16_t>(data);
        case CMPI_uint8:
            return AsInteger<std::uint8_t>(data);
        case CMPI_uint16:
            return AsInteger<std::uint16_t>(data);
        case CMPI_uint32:
            return AsInteger<std::uint32_t>(data);
        case CMPI_uint64:
            return AsInteger<std::uint64_t>(data);
        case CMPI_sint8:
            return AsInteger<std::int8_t>(data);
        case CMPI_sint16:
            return AsInteger<std::int16_t>(data);
        case CMPI_sint32:
            return AsInteger<std::int32_t>(data);
        case CMPI_sint64:
            return AsInteger<std::int64_t>(data);
        case CMPI_real32:
        case CMPI_real64:
            return AsReal(data);
        case CMPI_string:
            return AsItIs<std::string>(data);
        case CMPI_dateTime:
            return AsDateTime(data);
        case CMPI_ref:
            return AsReference(data);
        case CMPI_instance:
            return AsItIs<std::shared_ptr<const Instance>>(data);
        default:
            return std::nullopt;
    }
}

std::optional<Value> TypedArray(const Value& value, CMPIType type) {
    const auto* elements = std::get_if<std::vector<Value>>(&value.data);
    if (!elements) return std::nullopt;
    std::vector<Value> typed;
    for (const Value& element : *elements) {
        auto fitting = Typed(element, static_cast<CMPIType>(type & ~CMPI_ARRAY));
        if (!fitting) return std::nullopt;
        typed.push_back(std::move(*fitting));
    }
    return Value{type, std::move(typed)};
}

// The value that a scalar literal shows, of the widest type of its kind.
struct LiteralValue {
    Value operator()(std::monostate) const { return {}; }
    Value operator()(bool flag) const { return {CMPI_boolean, flag}; }
    Value operator()(std::int64_t number) const { return {CMPI_sint64, number}; }
    Value operator()(std::uint64_t number) const { return {CMPI_uint64, number}; }
    Value operator()(double real) const { return {CMPI_real64, real}; }
    Value operator()(const std::string& text) const { return {CMPI_string, text}; }
};

}  // namespace

CMPIType TypeOf(const mof::TypeName& type) {
    static constexpr CMPIType kCodes[] = {
        CMPI_boolean, CMPI_uint8,  CMPI_sint8,  CMPI_uint16,   CMPI_sint16,
        CMPI_uint32,  CMPI_sint32, CMPI_uint64, CMPI_sint64,   CMPI_real32,
        CMPI_real64,  CMPI_char16, CMPI_string, CMPI_dateTime, CMPI_ref,
    };
    static_assert(std::size(kCodes) == static_cast<std::size_t>(mof::DataType::Reference) + 1);
    const CMPIType code = kCodes[static_cast<std::size_t>(type.type)];
    return type.isArray ? static_cast<CMPIType>(CMPI_ARRAY | code) : code;
}

std::optional<Value> Typed(const Value& value, CMPIType type) {
    if (value.IsNull()) return Value{type, {}};
    if (type & CMPI_ARRAY) return TypedArray(value, type);
    auto data = AsScalar(value.data, type);
    if (!data) return std::nullopt;
    return Value{type, std::move(*data)};
}

Value FromLiteral(const mof::Literal& literal) {
    if (const auto* scalar = std::get_if<mof::Scalar>(&literal))
        return std::visit(LiteralValue{}, *scalar);
    std::vector<Value> elements;
    for (const mof::Scalar& scalar : std::get<std::vector<mof::Scalar>>(literal))
        elements.push_back(std::visit(LiteralValue{}, scalar));
    const CMPIType element = elements.empty() ? CMPIType{CMPI_string} : elements.front().type;
    return {static_cast<CMPIType>(CMPI_ARRAY | element), std::move(elements)};
}

Value FromLiteral(const mof::Literal& literal, CMPIType type) {
    return Typed(FromLiteral(literal), type).value_or(Value{type, {}});
}

}  // namespace host
