#include <base/Names.h>
#include <cli/DiagnosticRun.h>
#include <cli/Errors.h>

#include <vector>

namespace cli {

host::ObjectPath ClassPath(const std::string& className) {
    return {base::kNameSpace, className, {}};
}

host::MethodResult InvokeDiagnostic(host::Host& host) {
    const host::InstancesResult services = host.EnumerateInstances(ClassPath(kServiceClass));
    if (!services.status.IsOk())
        throw CallError(std::string("Enumerating ") + kServiceClass, services.status);
    constexpr const char* kRequest = "Running the I2C bus test";
    if (services.instances.empty())
        throw CallError(kRequest,
                        {CMPI_RC_ERR_NOT_FOUND, "The module offers no diagnostic service."});
    host::MethodResult result =
        host.InvokeMethod(services.instances.front().path, "RunDiagnostic", {});
    if (!result.status.IsOk()) throw CallError(kRequest, result.status);
    return result;
}

}  // namespace cli
