#include <host/objects/Objects.h>

namespace host {

namespace {

const char* GetCharPtr(const CMPIString* str, CMPIStatus* rc) {
    return Guard(rc, [&]() -> const char* { return Data(str).c_str(); });
}

}  // namespace

const CMPIStringFT ObjectType<CMPIString>::kTable = {
    .ftVersion = CMPIVersion200,
    .release = Release<CMPIString>,
    .clone = Clone<CMPIString>,
    .getCharPtr = GetCharPtr,
};

}  // namespace host
