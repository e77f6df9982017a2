// How a CMPI object is made, found behind its handle, copied and released; one template for all
// types.
//
// A specialisation of ObjectType says for each handle type what the data behind it is (`Data`),
// what the type is called (`kName`), and which function table its objects have (`kTable`).
#pragma once

#include <host/Status.h>
#include <host/objects/Arena.h>
#include <host/objects/Guard.h>

#include <string>
#include <utility>

namespace host {

template <class Handle>
struct ObjectType;

template <class Handle>
using DataOf = typename ObjectType<Handle>::Data;

template <class Handle>
class Object final : public ObjectBase {
public:
    explicit Object(DataOf<Handle> content)
        : handle{this, &ObjectType<Handle>::kTable}, data(std::move(content)) {}

    // The object behind a handle. Throws Failure for a null handle, a released object, or one of
    // another type.
    static Object& Behind(const Handle* handle) {
        if (!handle || !handle->hdl || handle->ft != &ObjectType<Handle>::kTable)
            throw Failure(CMPI_RC_ERR_INVALID_HANDLE,
                          std::string("This is not a valid ") + ObjectType<Handle>::kName + ".");
        return *static_cast<Object*>(const_cast<void*>(handle->hdl));
    }

    Handle* Get() { return &handle; }
    DataOf<Handle>& Data() { return data; }

    // Frees a clone. An object of a request gives up its data now and itself at the request's end,
    // so that its handle is known to be invalid until then.
    void Release() {
        if (!isInArena) {
            delete this;
            return;
        }
        handle.hdl = nullptr;
        data = DataOf<Handle>{};
    }

private:
    Handle handle;
    DataOf<Handle> data;
};

// Makes an object that belongs to the current request.
template <class Handle>
Handle* Make(DataOf<Handle> data) {
    return Arena::Current().Keep(std::make_unique<Object<Handle>>(std::move(data))).Get();
}

// The data behind a handle. Throws Failure for an invalid one.
template <class Handle>
DataOf<Handle>& Data(const Handle* handle) {
    return Object<Handle>::Behind(handle).Data();
}

// The table entries that all types share.
template <class Handle>
CMPIStatus Release(Handle* handle) {
    return GuardStatus([&] { Object<Handle>::Behind(handle).Release(); });
}

template <class Handle>
Handle* Clone(const Handle* handle, CMPIStatus* rc) {
    return Guard(rc, [&] { return (new Object<Handle>(Data(handle)))->Get(); });
}

}  // namespace host
