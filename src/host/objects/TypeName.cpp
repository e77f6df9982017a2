#include <host/objects/Objects.h>

#include <cstring>

namespace host {

namespace {

// What all CMPI objects begin with.
struct AnyHandle {
    const void* hdl;
    const void* ft;
};

struct KnownType {
    const void* table;
    const char* name;
};

template <class Handle>
constexpr KnownType Known() {
    return {&ObjectType<Handle>::kTable, ObjectType<Handle>::kName};
}

constexpr KnownType kKnownTypes[] = {
    Known<CMPIString>(),   Known<CMPIArray>(),       Known<CMPIObjectPath>(),
    Known<CMPIInstance>(), Known<CMPIArgs>(),        Known<CMPIDateTime>(),
    Known<CMPIContext>(),  Known<CMPIEnumeration>(), Known<CMPIResult>(),
};

}  // namespace

const char* TypeNameOf(const void* object) {
    AnyHandle handle{};
    if (object) std::memcpy(&handle, object, sizeof handle);
    if (!handle.hdl) throw Failure(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPI object.");
    for (const KnownType& known : kKnownTypes)
        if (known.table == handle.ft) return known.name;
    return nullptr;
}

}  // namespace host
