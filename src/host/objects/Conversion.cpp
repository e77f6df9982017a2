#include <host/objects/Conversion.h>
#include <host/objects/Objects.h>
#include <mof/Names.h>

#include <bit>
#include <memory>
#include <utility>

namespace host {

namespace {

constexpr CMPIType ElementType(CMPIType arrayType) {
    return static_cast<CMPIType>(arrayType & ~CMPI_ARRAY);
}

constexpr CMPIType ArrayType(CMPIType elementType) {
    return static_cast<CMPIType>(elementType | CMPI_ARRAY);
}

// The copy of an object's data, or NULL for no object.
template <class Handle, class Copy>
Value::Data Copied(const Handle* handle, const Copy& copy) {
    if (!handle) return std::monostate{};
    return copy(Data(handle));
}

Value::Data FromArray(const CMPIArray* array, CMPIType type) {
    return Copied(array, [&](const ArrayData& data) -> Value::Data {
        if (KeptType(type) != ArrayType(data.elementType))
            throw Failure(CMPI_RC_ERR_TYPE_MISMATCH,
                          "The array's elements are of another type than the value says.");
        return data.elements;
    });
}

Value::Data FromScalar(const CMPIValue& value, CMPIType type) {
    switch (type) {
        case CMPI_boolean:
            return value.boolean != 0;
        case CMPI_char16:
            return std::uint64_t{value.char16};
        case CMPI_uint8:
            return std::uint64_t{value.uint8};
        case CMPI_uint16:
            return std::uint64_t{value.uint16};
        case CMPI_uint32:
            return std::uint64_t{value.uint32};
        case CMPI_uint64:
            return std::uint64_t{value.uint64};
        case CMPI_sint8:
            return std::int64_t{value.sint8};
        case CMPI_sint16:
            return std::int64_t{value.sint16};
        case CMPI_sint32:
            return std::int64_t{value.sint32};
        case CMPI_sint64:
            return std::int64_t{value.sint64};
        case CMPI_real32:
            return double{value.real32};
        case CMPI_real64:
            return double{value.real64};
        case CMPI_string:
            return Copied(value.string,
                          [](const std::string& text) -> Value::Data { return text; });
        case CMPI_dateTime:
            return Copied(value.dateTime,
                          [](const DateTimeData& data) -> Value::Data { return data.text; });
        case CMPI_ref:
            return Copied(value.ref, [](const ObjectPathData& data) -> Value::Data {
                return std::make_shared<const ObjectPath>(data.path);
            });
        case CMPI_instance:
            return Copied(value.inst, [](const InstanceData& data) -> Value::Data {
                return std::make_shared<const Instance>(Exported(data));
            });
        default:
            throw Failure(CMPI_RC_ERR_INVALID_DATA_TYPE,
                          "CIM data cannot be of type " + std::to_string(type) + ".");
    }
}

static_assert(std::endian::native == std::endian::little,
              "The low bytes of a 64-bit member of a CMPIValue are its narrower members.");

CMPIValue NumberToCmpi(const Value::Data& data, CMPIType type) {
    CMPIValue value{};
    if (const auto* flag = std::get_if<bool>(&data)) {
        value.boolean = *flag;
    } else if (const auto* real = std::get_if<double>(&data)) {
        if (type == CMPI_real32)
            value.real32 = static_cast<CMPIReal32>(*real);
        else
            value.real64 = *real;
    } else if (const auto* number = std::get_if<std::int64_t>(&data)) {
        value.sint64 = *number;
    } else if (const auto* natural = std::get_if<std::uint64_t>(&data)) {
        value.uint64 = *natural;
    }
    return value;
}

CMPIInstance* InstanceToCmpi(const Instance& instance) {
    return Make<CMPIInstance>(Imported(Arena::Current().Classes(), instance));
}

}  // namespace

CMPIType KeptType(CMPIType type) {
    if (ElementType(type) != CMPI_chars) return type;
    return static_cast<CMPIType>((type & CMPI_ARRAY) | CMPI_string);
}

Value FromCmpi(const CMPIValue* value, CMPIType type) {
    const CMPIType kept = KeptType(type);
    if (!value || type == CMPI_null) return {kept, {}};
    // Characters are handed over directly, not as a member of a value.
    if (type == CMPI_chars) return {kept, std::string(reinterpret_cast<const char*>(value))};
    if (type & CMPI_ARRAY) return {kept, FromArray(value->array, type)};
    return {kept, FromScalar(*value, type)};
}

CMPIData ToCmpi(const Value& value, CMPIValueState state) {
    CMPIData data{value.type, state, {}};
    if (value.IsNull()) {
        data.state = static_cast<CMPIValueState>(state | CMPI_nullValue);
    } else if (const auto* elements = std::get_if<std::vector<Value>>(&value.data)) {
        data.value.array = Make<CMPIArray>({ElementType(value.type), *elements});
    } else if (const auto* text = std::get_if<std::string>(&value.data)) {
        if (value.type == CMPI_dateTime)
            data.value.dateTime = Make<CMPIDateTime>({*text});
        else
            data.value.string = Make<CMPIString>(*text);
    } else if (const auto* path = std::get_if<std::shared_ptr<const ObjectPath>>(&value.data)) {
        data.value.ref = Make<CMPIObjectPath>({**path});
    } else if (const auto* inst = std::get_if<std::shared_ptr<const Instance>>(&value.data)) {
        data.value.inst = InstanceToCmpi(**inst);
    } else {
        data.value = NumberToCmpi(value.data, value.type);
    }
    return data;
}

void SetValue(std::vector<NamedValue>& values, const char* name, Value value) {
    for (NamedValue& present : values) {
        if (!mof::SameName(present.name, name)) continue;
        present.value = std::move(value);
        return;
    }
    values.push_back({name, std::move(value)});
}

CMPIData LookUp(const std::vector<NamedValue>& values, const char* name, const char* what,
                CMPIValueState state) {
    const Value* const value = FindValue(values, Required(name, "The name"));
    if (!value)
        throw Failure(CMPI_RC_ERR_NOT_FOUND,
                      std::string("There is no ") + what + " '" + name + "'.");
    return ToCmpi(*value, state);
}

CMPIData LookUpAt(const std::vector<NamedValue>& values, CMPICount index, CMPIString** name,
                  const char* what, CMPIValueState state) {
    if (index >= values.size())
        throw Failure(CMPI_RC_ERR_NOT_FOUND, std::string("There is no ") + what + " at index " +
                                                 std::to_string(index) + ".");
    if (name) *name = Make<CMPIString>(values[index].name);
    return ToCmpi(values[index].value, state);
}

}  // namespace host
