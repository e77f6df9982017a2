#include <host/objects/Conversion.h>
#include <host/objects/Objects.h>
#include <host/schema/Qualifiers.h>

namespace host {

namespace {

constexpr const char* kKey = "key";

CMPIStatus SetNameSpace(const CMPIObjectPath* op, const char* ns) {
    return GuardStatus([&] { Data(op).path.nameSpace = Required(ns, "The namespace"); });
}

CMPIString* GetNameSpace(const CMPIObjectPath* op, CMPIStatus* rc) {
    return Guard(rc, [&] { return Make<CMPIString>(Data(op).path.nameSpace); });
}

CMPIStatus SetHostname(const CMPIObjectPath* op, const char* hn) {
    return GuardStatus([&] { Data(op).hostName = Required(hn, "The host name"); });
}

CMPIString* GetHostname(const CMPIObjectPath* op, CMPIStatus* rc) {
    return Guard(rc, [&] { return Make<CMPIString>(Data(op).hostName); });
}

CMPIStatus SetClassName(const CMPIObjectPath* op, const char* cn) {
    return GuardStatus([&] { Data(op).path.className = Required(cn, "The class name"); });
}

CMPIString* GetClassName(const CMPIObjectPath* op, CMPIStatus* rc) {
    return Guard(rc, [&] { return Make<CMPIString>(Data(op).path.className); });
}

CMPIStatus AddKey(const CMPIObjectPath* op, const char* key, const CMPIValue* value,
                  const CMPIType type) {
    return GuardStatus([&] {
        auto& keys = Data(op).path.keys;
        if ((type & CMPI_ARRAY) || type == CMPI_instance)
            throw Failure(CMPI_RC_ERR_TYPE_MISMATCH, "A key is neither an array nor an instance.");
        SetValue(keys, Required(key, "The key's name"), FromCmpi(value, type));
    });
}

CMPIData GetKey(const CMPIObjectPath* op, const char* key, CMPIStatus* rc) {
    return Guard(rc, [&] { return LookUp(Data(op).path.keys, key, kKey, CMPI_keyValue); });
}

CMPIData GetKeyAt(const CMPIObjectPath* op, CMPICount index, CMPIString** name, CMPIStatus* rc) {
    return Guard(rc,
                 [&] { return LookUpAt(Data(op).path.keys, index, name, kKey, CMPI_keyValue); });
}

CMPICount GetKeyCount(const CMPIObjectPath* op, CMPIStatus* rc) {
    return Guard(rc, [&] { return static_cast<CMPICount>(Data(op).path.keys.size()); });
}

CMPIStatus SetNameSpaceFrom(const CMPIObjectPath* op, const CMPIObjectPath* src) {
    return GuardStatus([&] { Data(op).path.nameSpace = Data(src).path.nameSpace; });
}

CMPIStatus SetHostAndNameSpaceFrom(const CMPIObjectPath* op, const CMPIObjectPath* src) {
    return GuardStatus([&] {
        Data(op).path.nameSpace = Data(src).path.nameSpace;
        Data(op).hostName = Data(src).hostName;
    });
}

CMPIData QualifierOf(const CMPIObjectPath* op, const QualifierPlace& place, const char* qualifier) {
    return ToCmpi(QualifierValue(Arena::Current().Classes(), Data(op).path.className, place,
                                 Required(qualifier, "The qualifier's name")));
}

CMPIData GetClassQualifier(const CMPIObjectPath* op, const char* qName, CMPIStatus* rc) {
    return Guard(rc, [&] { return QualifierOf(op, {}, qName); });
}

CMPIData GetPropertyQualifier(const CMPIObjectPath* op, const char* pName, const char* qName,
                              CMPIStatus* rc) {
    return Guard(rc, [&] {
        return QualifierOf(op, {.property = Required(pName, "The property's name")}, qName);
    });
}

CMPIData GetMethodQualifier(const CMPIObjectPath* op, const char* methodName, const char* qName,
                            CMPIStatus* rc) {
    return Guard(rc, [&] {
        return QualifierOf(op, {.method = Required(methodName, "The method's name")}, qName);
    });
}

CMPIData GetParameterQualifier(const CMPIObjectPath* op, const char* mName, const char* pName,
                               const char* qName, CMPIStatus* rc) {
    return Guard(rc, [&] {
        return QualifierOf(op,
                           {.method = Required(mName, "The method's name"),
                            .parameter = Required(pName, "The parameter's name")},
                           qName);
    });
}

CMPIString* ToString(const CMPIObjectPath* op, CMPIStatus* rc) {
    return Guard(rc, [&] { return Make<CMPIString>(Data(op).path.ToString()); });
}

}  // namespace

const CMPIObjectPathFT ObjectType<CMPIObjectPath>::kTable = {
    .ftVersion = CMPIVersion200,
    .release = Release<CMPIObjectPath>,
    .clone = Clone<CMPIObjectPath>,
    .setNameSpace = SetNameSpace,
    .getNameSpace = GetNameSpace,
    .setHostname = SetHostname,
    .getHostname = GetHostname,
    .setClassName = SetClassName,
    .getClassName = GetClassName,
    .addKey = AddKey,
    .getKey = GetKey,
    .getKeyAt = GetKeyAt,
    .getKeyCount = GetKeyCount,
    .setNameSpaceFromObjectPath = SetNameSpaceFrom,
    .setHostAndNameSpaceFromObjectPath = SetHostAndNameSpaceFrom,
    .getClassQualifier = GetClassQualifier,
    .getPropertyQualifier = GetPropertyQualifier,
    .getMethodQualifier = GetMethodQualifier,
    .getParameterQualifier = GetParameterQualifier,
    .toString = ToString,
};

}  // namespace host
