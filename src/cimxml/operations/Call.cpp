#include <cimxml/operations/Call.h>
#include <host/Status.h>

namespace cimxml {

namespace {

// The name of the class's only key.
const std::string& OnlyKey(const host::ClassInfo& cls) {
    const host::PropertyInfo* key = nullptr;
    for (const host::PropertyInfo& property : cls.properties) {
        if (!property.isKey) continue;
        if (key)
            throw host::Failure(CMPI_RC_ERR_INVALID_PARAMETER,
                                "A key value without a name does not say which key of the class '" +
                                    cls.Name() + "' it is.");
        key = &property;
    }
    if (!key)
        throw host::Failure(CMPI_RC_ERR_INVALID_PARAMETER,
                            "The class '" + cls.Name() + "' has no keys.");
    return key->name;
}

}  // namespace

const host::ClassInfo& ClassNamed(const NameSpace& nameSpace, const std::string& name,
                                  CMPIrc whenUnknown) {
    const host::ClassInfo* const cls = nameSpace.Classes().Find(name);
    if (!cls)
        throw host::Failure(whenUnknown, "There is no class '" + name + "' in the namespace '" +
                                             nameSpace.name + "'.");
    return *cls;
}

host::ObjectPath Located(const NameSpace& nameSpace, host::ObjectPath path) {
    const host::ClassInfo& cls = ClassNamed(nameSpace, path.className);
    path.nameSpace = nameSpace.name;
    path.className = cls.Name();
    for (host::NamedValue& key : path.keys)
        if (key.name.empty()) key.name = OnlyKey(cls);
    return path;
}

}  // namespace cimxml
