#include <host/objects/Objects.h>
#include <host/schema/DateTimeText.h>

namespace host {

namespace {

CMPIUint64 GetBinaryFormat(const CMPIDateTime* dt, CMPIStatus* rc) {
    return Guard(rc, [&] { return ToMicroseconds(Data(dt).text); });
}

CMPIString* GetStringFormat(const CMPIDateTime* dt, CMPIStatus* rc) {
    return Guard(rc, [&] { return Make<CMPIString>(Data(dt).text); });
}

CMPIBoolean IsIntervalEntry(const CMPIDateTime* dt, CMPIStatus* rc) {
    return Guard(rc, [&]() -> CMPIBoolean { return IsInterval(Data(dt).text); });
}

}  // namespace

const CMPIDateTimeFT ObjectType<CMPIDateTime>::kTable = {
    .ftVersion = CMPIVersion200,
    .release = Release<CMPIDateTime>,
    .clone = Clone<CMPIDateTime>,
    .getBinaryFormat = GetBinaryFormat,
    .getStringFormat = GetStringFormat,
    .isInterval = IsIntervalEntry,
};

}  // namespace host
