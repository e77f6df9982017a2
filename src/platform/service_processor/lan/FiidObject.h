// A part of a packet, as FreeIPMI's functions take it.
#pragma once

#include <freeipmi/freeipmi.h>
#include <platform/service_processor/lan/Bytes.h>

#include <memory>
#include <new>

namespace platform::lan {

class FiidObject {
public:
    // `layout` is one of FreeIPMI's templates. Throws std::bad_alloc.
    explicit FiidObject(fiid_field_t* layout) : object(fiid_obj_create(layout)) {
        if (!object) throw std::bad_alloc();
    }

    fiid_obj_t Get() const { return object.get(); }

    // True when the packet has every field that it must have.
    bool IsComplete() const { return fiid_obj_packet_valid(Get()) == 1; }

    // 0 when the packet has no such field.
    std::uint64_t Number(const char* field) const {
        std::uint64_t value = 0;
        return fiid_obj_get(Get(), field, &value) < 0 ? 0 : value;
    }

    // Nothing when the packet has no such field.
    Bytes Data(const char* field) const {
        const int length = fiid_obj_field_len_bytes(Get(), field);
        if (length <= 0) return {};
        Bytes data(static_cast<std::size_t>(length));
        const int read =
            fiid_obj_get_data(Get(), field, data.data(), static_cast<unsigned int>(data.size()));
        data.resize(read < 0 ? 0 : static_cast<std::size_t>(read));
        return data;
    }

    Bytes All() const {
        Bytes data(kLongestPacket);
        const int length =
            fiid_obj_get_all(Get(), data.data(), static_cast<unsigned int>(data.size()));
        data.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
        return data;
    }

    // False when the packet is none of the template's.
    bool SetAll(ByteView data) {
        fiid_obj_clear(Get());
        return fiid_obj_set_all(Get(), data.data(), static_cast<unsigned int>(data.size())) >= 0;
    }

    // `data` must fit the field.
    void SetData(const char* field, ByteView data) {
        fiid_obj_clear_field(Get(), field);
        fiid_obj_set_data(Get(), field, data.data(), static_cast<unsigned int>(data.size()));
    }

private:
    struct Destroy {
        void operator()(fiid_obj_t created) const { fiid_obj_destroy(created); }
    };
    std::unique_ptr<fiid_obj, Destroy> object;
};

}  // namespace platform::lan
