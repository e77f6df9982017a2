#include <host/objects/Conversion.h>
#include <host/objects/Objects.h>

namespace host {

namespace {

constexpr const char* kBelongsToHost = "A result belongs to the request that it answers.";

CMPIStatus ReleaseResult(CMPIResult* rslt) {
    return GuardStatus([&] {
        Data(rslt);
        throw Failure(CMPI_RC_ERR_NOT_SUPPORTED, kBelongsToHost);
    });
}

CMPIResult* CloneResult(const CMPIResult* rslt, CMPIStatus* rc) {
    return Guard(rc, [&]() -> CMPIResult* {
        Data(rslt);
        throw Failure(CMPI_RC_ERR_NOT_SUPPORTED, kBelongsToHost);
    });
}

CMPIStatus ReturnData(const CMPIResult* rslt, const CMPIValue* value, const CMPIType type) {
    return GuardStatus([&] {
        ResultData& result = Data(rslt);
        if (result.isDone)
            throw Failure(CMPI_RC_ERR_FAILED, "The result was declared done already.");
        if (result.accepted != CMPI_null && result.accepted != type)
            throw Failure(CMPI_RC_ERR_TYPE_MISMATCH, "The request does not ask for such data.");
        result.values.push_back(FromCmpi(value, type));
    });
}

// An instance or object path; unlike other data it must be there.
template <class Handle>
CMPIStatus ReturnObject(const CMPIResult* rslt, const Handle* object, Handle* CMPIValue::*member,
                        CMPIType type) {
    return GuardStatus([&] {
        Data(object);
        CMPIValue value{};
        value.*member = const_cast<Handle*>(object);
        const CMPIStatus status = ReturnData(rslt, &value, type);
        if (status.rc != CMPI_RC_OK) throw Failure(status.rc, Data(status.msg));
    });
}

CMPIStatus ReturnInstance(const CMPIResult* rslt, const CMPIInstance* inst) {
    return ReturnObject(rslt, inst, &CMPIValue::inst, CMPI_instance);
}

CMPIStatus ReturnObjectPath(const CMPIResult* rslt, const CMPIObjectPath* op) {
    return ReturnObject(rslt, op, &CMPIValue::ref, CMPI_ref);
}

CMPIStatus ReturnDone(const CMPIResult* rslt) {
    return GuardStatus([&] { Data(rslt).isDone = true; });
}

CMPIStatus ReturnError(const CMPIResult* rslt, const CMPIError* /*error*/) {
    return GuardStatus([&] {
        Data(rslt);
        throw Failure(CMPI_RC_ERR_NOT_SUPPORTED, "This host has no CMPIError objects.");
    });
}

}  // namespace

const CMPIResultFT ObjectType<CMPIResult>::kTable = {
    .ftVersion = CMPIVersion200,
    .release = ReleaseResult,
    .clone = CloneResult,
    .returnData = ReturnData,
    .returnInstance = ReturnInstance,
    .returnObjectPath = ReturnObjectPath,
    .returnDone = ReturnDone,
    .returnError = ReturnError,
};

}  // namespace host
