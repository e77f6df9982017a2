// The methods of T_Thing.
#include <map>
#include <stdexcept>

#include "Support.h"

namespace test_module {

namespace {

using Method = CMPIStatus (*)(const CMPIContext*, const CMPIResult*, const CMPIObjectPath*,
                              const CMPIArgs*, CMPIArgs*);

const CMPIBroker* broker = nullptr;

// A clone that outlives the request that made it.
CMPIString* kept = nullptr;

CMPIStatus ReturnNumber(const CMPIResult* result, CMPIUint32 number) {
    CMPIValue value{};
    value.uint32 = number;
    return result->ft->returnData(result, &value, CMPI_uint32);
}

// Copies the input arguments to the output arguments of the same names, and returns their number.
CMPIStatus Echo(const CMPIContext*, const CMPIResult* result, const CMPIObjectPath* path,
                const CMPIArgs* in, CMPIArgs* out) {
    const CMPICount count = in->ft->getArgCount(in, nullptr);
    for (CMPICount index = 0; index < count; ++index) {
        CMPIString* name = nullptr;
        const CMPIData data = in->ft->getArgAt(in, index, &name, nullptr);
        const bool isNull = (data.state & CMPI_nullValue) != 0;
        out->ft->addArg(out, Text(name).c_str(), isNull ? nullptr : &data.value, data.type);
    }
    const std::string target = Text(path->ft->toString(path, nullptr));
    out->ft->addArg(out, "Heard", reinterpret_cast<const CMPIValue*>(target.c_str()), CMPI_chars);
    return ReturnNumber(result, count);
}

// Counts the things by an up-call to the provider's own instance interface.
CMPIStatus Count(const CMPIContext* context, const CMPIResult* result, const CMPIObjectPath* path,
                 const CMPIArgs*, CMPIArgs*) {
    CMPIStatus status{};
    CMPIEnumeration* const things =
        broker->bft->enumerateInstances(broker, context, path, nullptr, &status);
    if (status.rc != CMPI_RC_OK) return status;
    CMPIUint32 count = 0;
    for (; things->ft->hasNext(things, nullptr); ++count) things->ft->getNext(things, nullptr);
    return ReturnNumber(result, count);
}

CMPIStatus Fail(const CMPIContext*, const CMPIResult*, const CMPIObjectPath*, const CMPIArgs*,
                CMPIArgs*) {
    return Error(broker, CMPI_RC_ERR_ACCESS_DENIED, "The thing's owner says no.");
}

CMPIStatus FailSilently(const CMPIContext*, const CMPIResult*, const CMPIObjectPath*,
                        const CMPIArgs*, CMPIArgs*) {
    return {CMPI_RC_ERR_FAILED, nullptr};
}

CMPIStatus Throw(const CMPIContext*, const CMPIResult*, const CMPIObjectPath*, const CMPIArgs*,
                 CMPIArgs*) {
    throw std::runtime_error("the thing broke");
}

CMPIStatus ThrowNumber(const CMPIContext*, const CMPIResult*, const CMPIObjectPath*,
                       const CMPIArgs*, CMPIArgs*) {
    throw 1;
}

CMPIStatus Keep(const CMPIContext*, const CMPIResult* result, const CMPIObjectPath*,
                const CMPIArgs* in, CMPIArgs*) {
    const CMPIString* const text = in->ft->getArg(in, "Text", nullptr).value.string;
    kept = text->ft->clone(text, nullptr);
    return ReturnNumber(result, 0);
}

CMPIStatus Kept(const CMPIContext*, const CMPIResult* result, const CMPIObjectPath*,
                const CMPIArgs*, CMPIArgs*) {
    CMPIValue value{};
    value.string = kept;
    result->ft->returnData(result, &value, CMPI_string);
    return kept->ft->release(kept);
}

CMPIStatus ReturnTwice(const CMPIContext*, const CMPIResult* result, const CMPIObjectPath*,
                       const CMPIArgs*, CMPIArgs*) {
    ReturnNumber(result, 1);
    result->ft->returnDone(result);
    return ReturnNumber(result, 2);
}

CMPIStatus ReturnNothing(const CMPIContext*, const CMPIResult*, const CMPIObjectPath*,
                         const CMPIArgs*, CMPIArgs*) {
    return kOk;
}

CMPIStatus Probe(const CMPIContext* context, const CMPIResult* result, const CMPIObjectPath*,
                 const CMPIArgs*, CMPIArgs*) {
    RunProbe(broker, context, result);
    return kOk;
}

CMPIStatus InvokeMethod(CMPIMethodMI*, const CMPIContext* context, const CMPIResult* result,
                        const CMPIObjectPath* path, const char* method, const CMPIArgs* in,
                        CMPIArgs* out) {
    static const std::map<std::string, Method> kMethods{
        {"Echo", Echo},
        {"Count", Count},
        {"Fail", Fail},
        {"FailSilently", FailSilently},
        {"Throw", Throw},
        {"ThrowNumber", ThrowNumber},
        {"Keep", Keep},
        {"Kept", Kept},
        {"ReturnTwice", ReturnTwice},
        {"ReturnNothing", ReturnNothing},
        {"Probe", Probe},
    };
    const auto found = kMethods.find(method);
    if (found == kMethods.end())
        return Error(broker, CMPI_RC_ERR_METHOD_NOT_FOUND, "A thing has no such method.");
    return found->second(context, result, path, in, out);
}

const CMPIMethodMIFT kTable = {
    .ftVersion = CMPIVersion200,
    .miVersion = CMPIVersion200,
    .miName = "T_Thing",
    .cleanup = CleanUp<CMPIMethodMI>,
    .invokeMethod = InvokeMethod,
};

CMPIMethodMI interface { nullptr, &kTable };

}  // namespace

TEST_EXPORT CMPIMethodMI* T_Thing_Provider_Create_MethodMI(const CMPIBroker* mb, const CMPIContext*,
                                                           CMPIStatus*) {
    broker = mb;
    CountMade();
    return &interface;
}

}  // namespace test_module
