#include <host/objects/Conversion.h>
#include <host/objects/Objects.h>

namespace host {

namespace {

Value& ElementAt(const CMPIArray* ar, CMPICount index) {
    ArrayData& array = Data(ar);
    if (index >= array.elements.size())
        throw Failure(CMPI_RC_ERR_NO_SUCH_PROPERTY,
                      "The array has no element " + std::to_string(index) + ".");
    return array.elements[index];
}

CMPICount GetSize(const CMPIArray* ar, CMPIStatus* rc) {
    return Guard(rc, [&] { return static_cast<CMPICount>(Data(ar).elements.size()); });
}

CMPIType GetSimpleType(const CMPIArray* ar, CMPIStatus* rc) {
    return Guard(rc, [&] { return Data(ar).elementType; });
}

CMPIData GetElementAt(const CMPIArray* ar, CMPICount index, CMPIStatus* rc) {
    return Guard(rc, [&] { return ToCmpi(ElementAt(ar, index)); });
}

CMPIStatus SetElementAt(const CMPIArray* ar, CMPICount index, const CMPIValue* value,
                        CMPIType type) {
    return GuardStatus([&] {
        Value& element = ElementAt(ar, index);
        const CMPIType elementType = Data(ar).elementType;
        Value given = FromCmpi(value, type);
        if (given.type != elementType && given.type != CMPI_null)
            throw Failure(CMPI_RC_ERR_TYPE_MISMATCH,
                          "The value is of another type than the array's elements.");
        given.type = elementType;
        element = std::move(given);
    });
}

}  // namespace

const CMPIArrayFT ObjectType<CMPIArray>::kTable = {
    .ftVersion = CMPIVersion200,
    .release = Release<CMPIArray>,
    .clone = Clone<CMPIArray>,
    .getSize = GetSize,
    .getSimpleType = GetSimpleType,
    .getElementAt = GetElementAt,
    .setElementAt = SetElementAt,
};

}  // namespace host
