// The host's factories of CMPI objects.
#include <host/broker/Refusal.h>
#include <host/broker/Services.h>
#include <host/objects/Conversion.h>
#include <host/objects/Objects.h>
#include <host/schema/DateTimeText.h>

namespace host {

namespace {

const ClassInfo& ClassNamed(const Services& services, const std::string& name) {
    const ClassInfo* const cls = services.classes.Find(name);
    if (!cls) throw Failure(CMPI_RC_ERR_INVALID_CLASS, "There is no class '" + name + "'.");
    return *cls;
}

CMPIInstance* NewInstanceEntry(const CMPIBroker* mb, const CMPIObjectPath* instPath,
                               CMPIStatus* rc) {
    return Guard(rc, [&] {
        const ObjectPath& path = Data(instPath).path;
        return Make<CMPIInstance>(NewInstance(ClassNamed(ServicesOf(mb), path.className), path));
    });
}

// The class is not looked up: a path may name an object of another server.
CMPIObjectPath* NewObjectPath(const CMPIBroker* mb, const char* ns, const char* cn,
                              CMPIStatus* rc) {
    return Guard(rc, [&] {
        ServicesOf(mb);
        return Make<CMPIObjectPath>({{ns ? ns : "", cn ? cn : "", {}}});
    });
}

CMPIString* NewString(const CMPIBroker* mb, const char* data, CMPIStatus* rc) {
    return Guard(rc, [&] {
        ServicesOf(mb);
        return Make<CMPIString>(data ? data : "");
    });
}

CMPIArray* NewArray(const CMPIBroker* mb, CMPICount size, CMPIType type, CMPIStatus* rc) {
    return Guard(rc, [&] {
        ServicesOf(mb);
        const CMPIType kept = KeptType(type);
        if (kept == CMPI_null || (kept & CMPI_ARRAY))
            throw Failure(CMPI_RC_ERR_INVALID_DATA_TYPE,
                          "An array's elements cannot be of type " + std::to_string(type) + ".");
        return Make<CMPIArray>({kept, std::vector<Value>(size, Value{kept, {}})});
    });
}

CMPIDateTime* NewDateTimeFromChars(const CMPIBroker* mb, const char* datetime, CMPIStatus* rc) {
    return Guard(rc, [&] {
        ServicesOf(mb);
        const std::string text = Required(datetime, "The date-time");
        if (!IsDateTime(text))
            throw Failure(CMPI_RC_ERR_INVALID_PARAMETER, "'" + text + "' is not a CIM date-time.");
        return Make<CMPIDateTime>({text});
    });
}

}  // namespace

const CMPIBrokerEncFT kFactories = {
    .ftVersion = CMPIVersion200,
    .newInstance = NewInstanceEntry,
    .newObjectPath = NewObjectPath,
    .newArgs = Refuse,
    .newString = NewString,
    .newArray = NewArray,
    .newDateTime = Refuse,
    .newDateTimeFromBinary = Refuse,
    .newDateTimeFromChars = NewDateTimeFromChars,
    .newSelectExp = Refuse,
    .classPathIsA = Refuse,
    .toString = Refuse,
    .isOfType = Refuse,
    .getType = Refuse,
    .getMessage = RefuseAny,
    .logMessage = Refuse,
    .trace = Refuse,
    .newCMPIError = Refuse,
    .openMessageFile = Refuse,
    .closeMessageFile = Refuse,
    .getMessage2 = RefuseAny,
};

}  // namespace host
