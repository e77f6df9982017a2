#include <host/objects/Conversion.h>
#include <host/objects/Objects.h>

namespace host {

namespace {

constexpr const char* kArgument = "argument";

CMPIStatus AddArg(const CMPIArgs* args, const char* name, const CMPIValue* value,
                  const CMPIType type) {
    return GuardStatus([&] {
        auto& values = Data(args).values;
        SetValue(values, Required(name, "The argument's name"), FromCmpi(value, type));
    });
}

CMPIData GetArg(const CMPIArgs* args, const char* name, CMPIStatus* rc) {
    return Guard(rc, [&] { return LookUp(Data(args).values, name, kArgument); });
}

CMPIData GetArgAt(const CMPIArgs* args, CMPICount index, CMPIString** name, CMPIStatus* rc) {
    return Guard(rc, [&] { return LookUpAt(Data(args).values, index, name, kArgument); });
}

CMPICount GetArgCount(const CMPIArgs* args, CMPIStatus* rc) {
    return Guard(rc, [&] { return static_cast<CMPICount>(Data(args).values.size()); });
}

}  // namespace

const CMPIArgsFT ObjectType<CMPIArgs>::kTable = {
    .ftVersion = CMPIVersion200,
    .release = Release<CMPIArgs>,
    .clone = Clone<CMPIArgs>,
    .addArg = AddArg,
    .getArg = GetArg,
    .getArgAt = GetArgAt,
    .getArgCount = GetArgCount,
};

}  // namespace host
