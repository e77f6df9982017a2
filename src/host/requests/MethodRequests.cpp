#include <host/objects/Objects.h>
#include <host/requests/MethodRequests.h>
#include <host/schema/FindByName.h>
#include <host/schema/TypedValue.h>

#include <utility>

namespace host {

namespace {

Value TypedArgument(const mof::Method& method, const NamedValue& argument) {
    const mof::Parameter* const parameter = FindByName(method.parameters, argument.name);
    if (!parameter)
        throw Failure(CMPI_RC_ERR_INVALID_PARAMETER,
                      "The method '" + method.name + "' has no parameter '" + argument.name + "'.");
    auto typed = Typed(argument.value, TypeOf(parameter->type));
    if (!typed)
        throw Failure(CMPI_RC_ERR_TYPE_MISMATCH, "The value of the parameter '" + parameter->name +
                                                     "' of the method '" + method.name +
                                                     "' is of a wrong type.");
    return std::move(*typed);
}

std::vector<NamedValue> TypedArguments(const ClassInfo& cls, const std::string& methodName,
                                       std::vector<NamedValue> arguments) {
    const mof::Method* const method = cls.FindMethod(methodName);
    if (!method) return arguments;
    for (NamedValue& argument : arguments) argument.value = TypedArgument(*method, argument);
    return arguments;
}

}  // namespace

MethodAnswer MethodRequests::Invoke(const ContextEntries& context, const ObjectPath& path,
                                    const std::string& method,
                                    const std::vector<NamedValue>& arguments) {
    const Target target = router.One(path, kMethodType);
    const std::string& provider = target.registration->provider;
    auto& mi = providers.Get<CMPIMethodMI>(provider);
    const ProviderCall call(router.Classes(), context, provider, CMPI_null);
    CMPIArgs* const in = Make<CMPIArgs>({TypedArguments(*target.cls, method, arguments)});
    CMPIArgs* const out = Make<CMPIArgs>({});
    call.Run([&] {
        return Implemented(mi.ft->invokeMethod)(&mi, call.Context(), call.Result(),
                                                Make<CMPIObjectPath>({target.path}), method.c_str(),
                                                in, out);
    });
    MethodAnswer answer{{}, std::move(Data(out).values)};
    if (!call.Values().empty()) answer.returnValue = std::move(call.Values().front());
    return answer;
}

}  // namespace host
