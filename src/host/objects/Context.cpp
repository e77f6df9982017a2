#include <host/objects/Conversion.h>
#include <host/objects/Objects.h>

namespace host {

namespace {

constexpr const char* kEntry = "context entry";

CMPIData GetEntry(const CMPIContext* ctx, const char* name, CMPIStatus* rc) {
    return Guard(rc, [&] { return LookUp(Data(ctx).entries, name, kEntry); });
}

CMPIData GetEntryAt(const CMPIContext* ctx, CMPICount index, CMPIString** name, CMPIStatus* rc) {
    return Guard(rc, [&] { return LookUpAt(Data(ctx).entries, index, name, kEntry); });
}

CMPICount GetEntryCount(const CMPIContext* ctx, CMPIStatus* rc) {
    return Guard(rc, [&] { return static_cast<CMPICount>(Data(ctx).entries.size()); });
}

CMPIStatus AddEntry(const CMPIContext* ctx, const char* name, const CMPIValue* value,
                    const CMPIType type) {
    return GuardStatus([&] {
        auto& entries = Data(ctx).entries;
        SetValue(entries, Required(name, "The entry's name"), FromCmpi(value, type));
    });
}

}  // namespace

const CMPIContextFT ObjectType<CMPIContext>::kTable = {
    .ftVersion = CMPIVersion200,
    .release = Release<CMPIContext>,
    .clone = Clone<CMPIContext>,
    .getEntry = GetEntry,
    .getEntryAt = GetEntryAt,
    .getEntryCount = GetEntryCount,
    .addEntry = AddEntry,
};

}  // namespace host
