#include "Classes.h"

#include <cstddef>
#include <iterator>

// The classes have members in their bases, too. The standard leaves offsetof of such classes to the
// compiler; GCC and Clang support it.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

using namespace cimple;

namespace {

extern const Meta_Repository repository;

constexpr Meta_Feature property(const char* name, Type type, std::size_t offset,
                                std::uint32_t flags = 0) {
    return {name, FEATURE_PROPERTY | flags, type, nullptr, offset};
}

constexpr Meta_Feature reference(const char* name, const Meta_Class& target, std::size_t offset,
                                 std::uint32_t flags) {
    return {name, FEATURE_REFERENCE | flags, Type{}, &target, offset};
}

template <class T, std::size_t featureCount>
constexpr Meta_Class describe(const char* name, std::uint32_t flags, const Meta_Class* superClass,
                              const Meta_Feature (&features)[featureCount],
                              const Meta_Class* const* methods = nullptr,
                              std::size_t methodCount = 0) {
    return {name,        flags,     superClass,       features,        featureCount, methods,
            methodCount, sizeof(T), &construct_as<T>, &destruct_as<T>, &repository};
}

constexpr Meta_Feature deviceFeatures[] = {
    property("Id", Type::string, offsetof(ACME_Device, Id), FEATURE_KEY),
    property("Slot", Type::uint8, offsetof(ACME_Device, Slot), FEATURE_KEY),
    property("Caption", Type::string, offsetof(ACME_Device, Caption)),
};

constexpr Meta_Feature resetFeatures[] = {
    property("return_value", Type::uint32, offsetof(ACME_Fan_Reset_method, return_value),
             FEATURE_OUT),
};

constexpr Meta_Feature swapFeatures[] = {
    reference("Neighbour", ACME_Device::static_meta_class,
              offsetof(ACME_Fan_Swap_method, Neighbour), FEATURE_IN),
    property("Count", Type::uint8, offsetof(ACME_Fan_Swap_method, Count), FEATURE_IN),
    property("Notes", Type::string, offsetof(ACME_Fan_Swap_method, Notes),
             FEATURE_IN | FEATURE_ARRAY),
    reference("Former", ACME_Device::static_meta_class, offsetof(ACME_Fan_Swap_method, Former),
              FEATURE_OUT),
    property("Report", Type::string, offsetof(ACME_Fan_Swap_method, Report), FEATURE_OUT),
    property("return_value", Type::uint32, offsetof(ACME_Fan_Swap_method, return_value),
             FEATURE_OUT),
};

constexpr Meta_Feature stopFeatures[] = {
    property("return_value", Type::uint32, offsetof(ACME_Fan_Stop_method, return_value),
             FEATURE_OUT),
};

constexpr Meta_Feature fanFeatures[] = {
    property("Id", Type::string, offsetof(ACME_Fan, Id), FEATURE_KEY),
    property("Slot", Type::uint8, offsetof(ACME_Fan, Slot), FEATURE_KEY),
    property("Caption", Type::string, offsetof(ACME_Fan, Caption)),
    property("Started", Type::boolean, offsetof(ACME_Fan, Started)),
    property("Tilt", Type::sint8, offsetof(ACME_Fan, Tilt)),
    property("Speed", Type::uint16, offsetof(ACME_Fan, Speed)),
    property("Offset", Type::sint16, offsetof(ACME_Fan, Offset)),
    property("Hours", Type::uint32, offsetof(ACME_Fan, Hours)),
    property("Drift", Type::sint32, offsetof(ACME_Fan, Drift)),
    property("Turns", Type::uint64, offsetof(ACME_Fan, Turns)),
    property("Balance", Type::sint64, offsetof(ACME_Fan, Balance)),
    property("Load", Type::real32, offsetof(ACME_Fan, Load)),
    property("Power", Type::real64, offsetof(ACME_Fan, Power)),
    property("Grade", Type::char16, offsetof(ACME_Fan, Grade)),
    property("Since", Type::datetime, offsetof(ACME_Fan, Since)),
    property("Levels", Type::uint16, offsetof(ACME_Fan, Levels), FEATURE_ARRAY),
    property("Labels", Type::string, offsetof(ACME_Fan, Labels), FEATURE_ARRAY),
};

constexpr const Meta_Class* fanMethods[] = {
    &ACME_Fan_Reset_method::static_meta_class,
    &ACME_Fan_Swap_method::static_meta_class,
    &ACME_Fan_Stop_method::static_meta_class,
};

constexpr Meta_Feature coolsFeatures[] = {
    reference("Cooler", ACME_Fan::static_meta_class, offsetof(ACME_Cools, Cooler), FEATURE_KEY),
    reference("Cooled", ACME_Device::static_meta_class, offsetof(ACME_Cools, Cooled), FEATURE_KEY),
};

constexpr const Meta_Class* classes[] = {
    &ACME_Device::static_meta_class,
    &ACME_Fan::static_meta_class,
    &ACME_Cools::static_meta_class,
};

constinit const Meta_Repository repository = {classes, std::size(classes)};

}  // namespace

constinit const Meta_Class ACME_Device::static_meta_class =
    describe<ACME_Device>("ACME_Device", 0, nullptr, deviceFeatures);
constinit const Meta_Class ACME_Fan_Reset_method::static_meta_class =
    describe<ACME_Fan_Reset_method>("Reset", CLASS_METHOD, nullptr, resetFeatures);
constinit const Meta_Class ACME_Fan_Swap_method::static_meta_class =
    describe<ACME_Fan_Swap_method>("Swap", CLASS_METHOD, nullptr, swapFeatures);
constinit const Meta_Class ACME_Fan_Stop_method::static_meta_class =
    describe<ACME_Fan_Stop_method>("Stop", CLASS_METHOD, nullptr, stopFeatures);
constinit const Meta_Class ACME_Fan::static_meta_class = describe<ACME_Fan>(
    "ACME_Fan", 0, &ACME_Device::static_meta_class, fanFeatures, fanMethods, std::size(fanMethods));
constinit const Meta_Class ACME_Cools::static_meta_class =
    describe<ACME_Cools>("ACME_Cools", CLASS_ASSOCIATION, nullptr, coolsFeatures);
