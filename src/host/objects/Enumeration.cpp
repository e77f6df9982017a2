#include <host/objects/Conversion.h>
#include <host/objects/Objects.h>

namespace host {

namespace {

CMPIData GetNext(const CMPIEnumeration* en, CMPIStatus* rc) {
    return Guard(rc, [&] {
        EnumerationData& data = Data(en);
        if (data.next >= data.elements.size())
            throw Failure(CMPI_RC_NO_MORE_ELEMENTS, "The enumeration has no more elements.");
        return ToCmpi(data.elements[data.next++]);
    });
}

CMPIBoolean HasNext(const CMPIEnumeration* en, CMPIStatus* rc) {
    return Guard(rc, [&]() -> CMPIBoolean {
        const EnumerationData& data = Data(en);
        return data.next < data.elements.size();
    });
}

CMPIArray* ToArray(const CMPIEnumeration* en, CMPIStatus* rc) {
    return Guard(rc, [&] {
        const EnumerationData& data = Data(en);
        return Make<CMPIArray>({data.elementType, data.elements});
    });
}

}  // namespace

const CMPIEnumerationFT ObjectType<CMPIEnumeration>::kTable = {
    .ftVersion = CMPIVersion200,
    .release = Release<CMPIEnumeration>,
    .clone = Clone<CMPIEnumeration>,
    .getNext = GetNext,
    .hasNext = HasNext,
    .toArray = ToArray,
};

}  // namespace host
