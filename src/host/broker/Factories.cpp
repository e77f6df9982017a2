// The host's factories of CMPI objects, and helpers on them.
#include <host/broker/MessageText.h>
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

CMPIArgs* NewArgs(const CMPIBroker* mb, CMPIStatus* rc) {
    return Guard(rc, [&] {
        ServicesOf(mb);
        return Make<CMPIArgs>({});
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

CMPIDateTime* NewDateTime(const CMPIBroker* mb, CMPIStatus* rc) {
    return Guard(rc, [&] {
        ServicesOf(mb);
        return Make<CMPIDateTime>({CurrentDateTime()});
    });
}

CMPIDateTime* NewDateTimeFromBinary(const CMPIBroker* mb, CMPIUint64 binTime, CMPIBoolean interval,
                                    CMPIStatus* rc) {
    return Guard(rc, [&] {
        ServicesOf(mb);
        return Make<CMPIDateTime>({FromMicroseconds(binTime, interval != 0)});
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

CMPISelectExp* NewSelectExp(const CMPIBroker* mb, const char* /*query*/, const char* /*lang*/,
                            CMPIArray** /*projection*/, CMPIStatus* rc) {
    return Guard(rc, [&]() -> CMPISelectExp* {
        ServicesOf(mb);
        throw Failure(CMPI_RC_ERR_NOT_SUPPORTED, "This host has no CMPISelectExp objects.");
    });
}

CMPIBoolean ClassPathIsA(const CMPIBroker* mb, const CMPIObjectPath* classPath,
                         const char* className, CMPIStatus* rc) {
    return Guard(rc, [&]() -> CMPIBoolean {
        const Services& services = ServicesOf(mb);
        const std::string ancestor = Required(className, "The class name");
        return ClassNamed(services, Data(classPath).path.className).IsA(ancestor);
    });
}

std::string TextOf(const void* object) {
    const char* const type = TypeNameOf(object);
    if (!type) throw Failure(CMPI_RC_ERR_INVALID_HANDLE, "This is not an object of this host.");
    const std::string name = type;
    if (name == ObjectType<CMPIString>::kName) return Data(static_cast<const CMPIString*>(object));
    if (name == ObjectType<CMPIObjectPath>::kName)
        return Data(static_cast<const CMPIObjectPath*>(object)).path.ToString();
    if (name == ObjectType<CMPIInstance>::kName)
        return PathOf(Data(static_cast<const CMPIInstance*>(object))).ToString();
    if (name == ObjectType<CMPIDateTime>::kName)
        return Data(static_cast<const CMPIDateTime*>(object)).text;
    return name;
}

CMPIString* ToString(const CMPIBroker* mb, const void* object, CMPIStatus* rc) {
    return Guard(rc, [&] {
        ServicesOf(mb);
        return Make<CMPIString>(TextOf(object));
    });
}

CMPIBoolean IsOfType(const CMPIBroker* mb, const void* object, const char* type, CMPIStatus* rc) {
    return Guard(rc, [&]() -> CMPIBoolean {
        ServicesOf(mb);
        const std::string wanted = Required(type, "The type");
        const char* const name = TypeNameOf(object);
        return name && wanted == name;
    });
}

CMPIString* GetType(const CMPIBroker* mb, const void* object, CMPIStatus* rc) {
    return Guard(rc, [&] {
        ServicesOf(mb);
        const char* const name = TypeNameOf(object);
        if (!name) throw Failure(CMPI_RC_ERR_INVALID_HANDLE, "This is not an object of this host.");
        return Make<CMPIString>(name);
    });
}

// There are no message files here, so the default text is the message.
CMPIString* MakeMessage(const CMPIBroker* mb, const char* defMsg, CMPIStatus* rc, CMPICount count,
                        va_list arguments) {
    return Guard(rc, [&] {
        ServicesOf(mb);
        return Make<CMPIString>(
            WithArguments(Required(defMsg, "The default text"), ReadArguments(count, arguments)));
    });
}

CMPIString* GetMessage(const CMPIBroker* mb, const char* /*msgId*/, const char* defMsg,
                       CMPIStatus* rc, CMPICount count, ...) {
    va_list arguments;
    va_start(arguments, count);
    CMPIString* const message = MakeMessage(mb, defMsg, rc, count, arguments);
    va_end(arguments);
    return message;
}

CMPIString* GetMessage2(const CMPIBroker* mb, const char* /*msgId*/,
                        const CMPIMsgFileHandle /*file*/, const char* defMsg, CMPIStatus* rc,
                        CMPICount count, ...) {
    va_list arguments;
    va_start(arguments, count);
    CMPIString* const message = MakeMessage(mb, defMsg, rc, count, arguments);
    va_end(arguments);
    return message;
}

CMPIStatus OpenMessageFile(const CMPIBroker* mb, const char* /*msgFile*/,
                           CMPIMsgFileHandle* msgFileHandle) {
    return GuardStatus([&] {
        ServicesOf(mb);
        if (msgFileHandle) *msgFileHandle = nullptr;
    });
}

CMPIStatus CloseMessageFile(const CMPIBroker* mb, const CMPIMsgFileHandle /*file*/) {
    return GuardStatus([&] { ServicesOf(mb); });
}

// The text comes as characters or as an object.
CMPIStatus Tell(const CMPIBroker* mb, Message::Kind kind, int level, const char* component,
                const char* text, const CMPIString* string) {
    return GuardStatus([&] {
        const Services& services = ServicesOf(mb);
        const std::string told = text ? text : Data(string);
        if (services.sink) services.sink({kind, level, component ? component : "", told});
    });
}

CMPIStatus LogMessage(const CMPIBroker* mb, CMPISeverity severity, const char* id, const char* text,
                      const CMPIString* string) {
    return Tell(mb, Message::Kind::Log, severity, id, text, string);
}

CMPIStatus Trace(const CMPIBroker* mb, CMPILevel level, const char* component, const char* text,
                 const CMPIString* string) {
    return Tell(mb, Message::Kind::Trace, level, component, text, string);
}

CMPIError* NewCmpiError(const CMPIBroker* mb, const char* /*owner*/, const char* /*msgID*/,
                        const char* /*msg*/, const CMPIErrorSeverity /*sev*/,
                        const CMPIErrorProbableCause /*pc*/, const CMPIrc /*cimStatusCode*/,
                        CMPIStatus* rc) {
    return Guard(rc, [&]() -> CMPIError* {
        ServicesOf(mb);
        throw Failure(CMPI_RC_ERR_NOT_SUPPORTED, "This host has no CMPIError objects.");
    });
}

}  // namespace

const CMPIBrokerEncFT kFactories = {
    .ftVersion = CMPIVersion200,
    .newInstance = NewInstanceEntry,
    .newObjectPath = NewObjectPath,
    .newArgs = NewArgs,
    .newString = NewString,
    .newArray = NewArray,
    .newDateTime = NewDateTime,
    .newDateTimeFromBinary = NewDateTimeFromBinary,
    .newDateTimeFromChars = NewDateTimeFromChars,
    .newSelectExp = NewSelectExp,
    .classPathIsA = ClassPathIsA,
    .toString = ToString,
    .isOfType = IsOfType,
    .getType = GetType,
    .getMessage = GetMessage,
    .logMessage = LogMessage,
    .trace = Trace,
    .newCMPIError = NewCmpiError,
    .openMessageFile = OpenMessageFile,
    .closeMessageFile = CloseMessageFile,
    .getMessage2 = GetMessage2,
};

}  // namespace host
