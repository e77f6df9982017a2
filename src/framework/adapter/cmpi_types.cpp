#include <framework/adapter/cmpi_types.h>
#include <framework/types.h>
#include <framework/visit.h>

namespace cimple {

namespace {

struct Type_Entry {
    CMPIType cmpi;
    const char* name;
};

// Indexed by Type.
constexpr Type_Entry kTypes[kTypeCount] = {
    {CMPI_boolean, "boolean"}, {CMPI_uint8, "uint8"},       {CMPI_sint8, "sint8"},
    {CMPI_uint16, "uint16"},   {CMPI_sint16, "sint16"},     {CMPI_uint32, "uint32"},
    {CMPI_sint32, "sint32"},   {CMPI_uint64, "uint64"},     {CMPI_sint64, "sint64"},
    {CMPI_real32, "real32"},   {CMPI_real64, "real64"},     {CMPI_char16, "char16"},
    {CMPI_string, "string"},   {CMPI_dateTime, "datetime"},
};

const Type_Entry& entry_of(Type type) { return kTypes[static_cast<std::size_t>(type)]; }

bool is_array(const Meta_Feature& feature) { return (feature.flags & FEATURE_ARRAY) != 0; }

}  // namespace

CMPIType cmpi_type(Type type) { return entry_of(type).cmpi; }

CMPIType cmpi_type(const Meta_Feature& feature) {
    if (is_reference(feature)) return CMPI_ref;
    const CMPIType element = cmpi_type(feature.type);
    return is_array(feature) ? static_cast<CMPIType>(CMPI_ARRAY | element) : element;
}

std::string type_name(const Meta_Feature& feature) {
    if (is_reference(feature)) return feature.reference_class->name + std::string(" REF");
    return entry_of(feature.type).name + std::string(is_array(feature) ? "[]" : "");
}

}  // namespace cimple
