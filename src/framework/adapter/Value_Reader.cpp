#include <framework/adapter/Value_Reader.h>
#include <framework/adapter/objects.h>
#include <framework/visit.h>

#include <cmath>
#include <concepts>
#include <optional>
#include <utility>

namespace cimple {

namespace {

template <class T, class Wide>
std::optional<T> fit(Wide wide) {
    if (!std::in_range<T>(wide)) return std::nullopt;
    return static_cast<T>(wide);
}

bool is_text(const CMPIData& data) { return data.type == CMPI_string || data.type == CMPI_chars; }

const char* text_in(const CMPIData& data) {
    return data.type == CMPI_chars ? data.value.chars : text_of(data.value.string);
}

template <class T>
std::optional<T> read(const CMPIData& data) = delete;

template <std::integral T>
std::optional<T> read(const CMPIData& data) {
    switch (data.type) {
        case CMPI_uint8:
            return fit<T>(data.value.uint8);
        case CMPI_sint8:
            return fit<T>(data.value.sint8);
        case CMPI_uint16:
            return fit<T>(data.value.uint16);
        case CMPI_sint16:
            return fit<T>(data.value.sint16);
        case CMPI_uint32:
            return fit<T>(data.value.uint32);
        case CMPI_sint32:
            return fit<T>(data.value.sint32);
        case CMPI_uint64:
            return fit<T>(data.value.uint64);
        case CMPI_sint64:
            return fit<T>(data.value.sint64);
        default:
            return std::nullopt;
    }
}

template <std::floating_point T>
std::optional<T> read(const CMPIData& data) {
    if (data.type != CMPI_real32 && data.type != CMPI_real64) return std::nullopt;
    const double wide = data.type == CMPI_real32 ? data.value.real32 : data.value.real64;
    if (std::isfinite(wide) && !std::isfinite(static_cast<T>(wide))) return std::nullopt;
    return static_cast<T>(wide);
}

template <>
std::optional<bool> read<bool>(const CMPIData& data) {
    if (data.type != CMPI_boolean) return std::nullopt;
    return data.value.boolean != 0;
}

template <>
std::optional<char16_t> read<char16_t>(const CMPIData& data) {
    if (data.type != CMPI_char16) return std::nullopt;
    return static_cast<char16_t>(data.value.char16);
}

template <>
std::optional<String> read<String>(const CMPIData& data) {
    if (!is_text(data)) return std::nullopt;
    return String(text_in(data));
}

template <>
std::optional<Datetime> read<Datetime>(const CMPIData& data) {
    if (is_text(data)) return Datetime::from_text(text_in(data));
    if (data.type != CMPI_dateTime) return std::nullopt;
    CMPIStatus status{CMPI_RC_OK, nullptr};
    const CMPIDateTime* const datetime = data.value.dateTime;
    return Datetime::from_text(text_of(datetime->ft->getStringFormat(datetime, &status)));
}

template <class T>
bool read_into(Property<T>& property, const CMPIData& data) {
    const std::optional<T> value = read<T>(data);
    if (value) property = *value;
    return value.has_value();
}

// An element without a value becomes the type's zero: arrays here have no null elements.
template <class T>
bool read_into(Property<Array<T>>& property, const CMPIData& data) {
    if ((data.type & CMPI_ARRAY) == 0) return false;
    const CMPIArray* const array = data.value.array;
    CMPIStatus status{CMPI_RC_OK, nullptr};
    const CMPICount size = array->ft->getSize(array, &status);
    Array<T> elements;
    for (CMPICount i = 0; i < size; ++i) {
        const CMPIData element = array->ft->getElementAt(array, i, &status);
        const std::optional<T> value = is_null(element) ? T{} : read<T>(element);
        if (!value) return false;
        elements.append(*value);
    }
    property = elements;
    return true;
}

bool is_pointer(CMPIType type) {
    return (type & CMPI_ARRAY) != 0 || type == CMPI_string || type == CMPI_chars ||
           type == CMPI_dateTime || type == CMPI_ref || type == CMPI_instance;
}

}  // namespace

bool is_null(const CMPIData& data) {
    constexpr int kNoValue = CMPI_nullValue | CMPI_notFound | CMPI_badValue;
    if ((data.state & kNoValue) != 0 || data.type == CMPI_null) return true;
    return is_pointer(data.type) && data.value.string == nullptr;
}

bool read_property(Instance& instance, const Meta_Feature& feature, const CMPIData& data) {
    return visit_property(instance, feature,
                          [&](auto& property) { return read_into(property, data); });
}

}  // namespace cimple
