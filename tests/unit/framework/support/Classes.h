// A small set of classes, written as the generator would write them: a device, a fan with every
// type of property and three methods, and an association.
#pragma once

#include <framework/Array.h>
#include <framework/Datetime.h>
#include <framework/Instance.h>
#include <framework/Property.h>
#include <framework/String.h>

#include <cstdint>

class ACME_Device : public cimple::Instance {
public:
    cimple::Property<cimple::String> Id;  // key
    cimple::Property<std::uint8_t> Slot;  // key
    cimple::Property<cimple::String> Caption;

    using Methods = cimple::Method_List<>;

    static const cimple::Meta_Class static_meta_class;
};

class ACME_Fan_Reset_method : public cimple::Instance {
public:
    cimple::Property<std::uint32_t> return_value;

    template <class Provider, class Self>
    int invoke(Provider& provider, const Self* self) {
        return provider.Reset(self, return_value);
    }

    static const cimple::Meta_Class static_meta_class;
};

class ACME_Fan_Swap_method : public cimple::Instance {
public:
    ACME_Device* Neighbour = nullptr;                       // in
    cimple::Property<std::uint8_t> Count;                   // in
    cimple::Property<cimple::Array<cimple::String>> Notes;  // in
    ACME_Device* Former = nullptr;                          // out
    cimple::Property<cimple::String> Report;                // out
    cimple::Property<std::uint32_t> return_value;

    template <class Provider, class Self>
    int invoke(Provider& provider, const Self* self) {
        return provider.Swap(self, static_cast<const ACME_Device*>(Neighbour), Count, Notes, Former,
                             Report, return_value);
    }

    static const cimple::Meta_Class static_meta_class;
};

class ACME_Fan_Stop_method : public cimple::Instance {
public:
    cimple::Property<std::uint32_t> return_value;

    template <class Provider, class Self>
    int invoke(Provider& provider, const Self* self) {
        return provider.Stop(self, return_value);
    }

    static const cimple::Meta_Class static_meta_class;
};

class ACME_Fan : public ACME_Device {
public:
    cimple::Property<bool> Started;
    cimple::Property<std::int8_t> Tilt;
    cimple::Property<std::uint16_t> Speed;
    cimple::Property<std::int16_t> Offset;
    cimple::Property<std::uint32_t> Hours;
    cimple::Property<std::int32_t> Drift;
    cimple::Property<std::uint64_t> Turns;
    cimple::Property<std::int64_t> Balance;
    cimple::Property<float> Load;
    cimple::Property<double> Power;
    cimple::Property<char16_t> Grade;
    cimple::Property<cimple::Datetime> Since;
    cimple::Property<cimple::Array<std::uint16_t>> Levels;
    cimple::Property<cimple::Array<cimple::String>> Labels;

    using Methods =
        cimple::Method_List<ACME_Fan_Reset_method, ACME_Fan_Swap_method, ACME_Fan_Stop_method>;

    static const cimple::Meta_Class static_meta_class;
};

class ACME_Cools : public cimple::Instance {
public:
    ACME_Fan* Cooler = nullptr;     // key
    ACME_Device* Cooled = nullptr;  // key

    using Methods = cimple::Method_List<>;

    static const cimple::Meta_Class static_meta_class;
};
