#include <host/objects/Objects.h>
#include <host/requests/ProviderCall.h>

#include <utility>

namespace host {

namespace {

// The provider's own text; if there is none, one that names provider and code.
std::string TextOf(const CMPIStatus& status, const std::string& provider) {
    if (status.msg) return Data(status.msg);
    return "The provider '" + provider + "' answered with code " + std::to_string(status.rc) +
           " and without a text.";
}

[[noreturn]] void FailWithException(const std::string& provider, const std::string& what) {
    throw Failure(CMPI_RC_ERR_FAILED, "The provider '" + provider + "' threw " + what + ".");
}

// The objects that a provider returned; their kind was checked when it returned them. `pathOf`
// gives the path of one.
template <class Returned, class PathOfReturned>
std::vector<Returned> Unpacked(const std::vector<Value>& values, const std::string& nameSpace,
                               const PathOfReturned& pathOf) {
    std::vector<Returned> objects;
    for (const Value& value : values) {
        objects.push_back(*std::get<std::shared_ptr<const Returned>>(value.data));
        ObjectPath& path = pathOf(objects.back());
        if (path.nameSpace.empty()) path.nameSpace = nameSpace;
    }
    return objects;
}

}  // namespace

ContextEntries ClientContext(const std::string& nameSpace) {
    return {{CMPIInvocationFlags, {CMPI_uint32, std::uint64_t{0}}},
            {CMPIInitNameSpace, {CMPI_string, nameSpace}}};
}

ProviderCall::ProviderCall(const ClassRepository& classes, const ContextEntries& entries,
                           std::string providerName, CMPIType accepted)
    : provider(std::move(providerName)),
      arena(classes),
      scope(arena),
      context(Make<CMPIContext>({entries})),
      result(Make<CMPIResult>({accepted, {}})) {}

void ProviderCall::Run(const std::function<CMPIStatus()>& call) const {
    CMPIStatus status{};
    try {
        status = call();
    } catch (const Failure&) {
        throw;
    } catch (const std::exception& error) {
        FailWithException(provider, std::string("an exception: ") + error.what());
    } catch (...) {
        FailWithException(provider, "something that is no exception");
    }
    if (status.rc != CMPI_RC_OK) throw Failure(status.rc, TextOf(status, provider));
}

std::vector<Value>& ProviderCall::Values() const { return Data(result).values; }

std::vector<Instance> ProviderCall::Instances(const std::string& nameSpace) const {
    return Unpacked<Instance>(Values(), nameSpace,
                              [](Instance& instance) -> ObjectPath& { return instance.path; });
}

std::vector<ObjectPath> ProviderCall::Paths(const std::string& nameSpace) const {
    return Unpacked<ObjectPath>(Values(), nameSpace,
                                [](ObjectPath& path) -> ObjectPath& { return path; });
}

NameList::NameList(PropertyList names) {
    if (!names) return;
    for (const std::string& name : *names) pointers.push_back(name.c_str());
    pointers.push_back(nullptr);
}

}  // namespace host
