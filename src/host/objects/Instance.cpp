#include <host/objects/Conversion.h>
#include <host/objects/Objects.h>
#include <mof/Names.h>

namespace host {

namespace {

[[noreturn]] void FailWithoutProperty(const InstanceData& data, const std::string& which) {
    throw Failure(CMPI_RC_ERR_NO_SUCH_PROPERTY,
                  "The instance of '" + data.cls->Name() + "' has no property " + which + ".");
}

std::size_t IndexOf(const InstanceData& data, const char* name) {
    const PropertyInfo* const property =
        data.cls->FindProperty(Required(name, "The property's name"));
    if (!property) FailWithoutProperty(data, std::string("'") + name + "'");
    return static_cast<std::size_t>(property - data.cls->properties.data());
}

CMPIData PropertyData(const InstanceData& data, std::size_t index) {
    const bool isKey = data.cls->properties[index].isKey;
    return ToCmpi(data.instance.properties[index].value, isKey ? CMPI_keyValue : CMPI_goodValue);
}

CMPIData GetProperty(const CMPIInstance* inst, const char* name, CMPIStatus* rc) {
    return Guard(rc, [&] {
        const InstanceData& data = Data(inst);
        const std::size_t index = IndexOf(data, name);
        if (!data.Shows(name)) FailWithoutProperty(data, std::string("'") + name + "'");
        return PropertyData(data, index);
    });
}

CMPIData GetPropertyAt(const CMPIInstance* inst, CMPICount index, CMPIString** name,
                       CMPIStatus* rc) {
    return Guard(rc, [&] {
        const InstanceData& data = Data(inst);
        CMPICount shown = 0;
        for (std::size_t at = 0; at < data.instance.properties.size(); ++at) {
            const std::string& candidate = data.instance.properties[at].name;
            if (!data.Shows(candidate) || shown++ != index) continue;
            if (name) *name = Make<CMPIString>(candidate);
            return PropertyData(data, at);
        }
        FailWithoutProperty(data, "at index " + std::to_string(index));
    });
}

CMPICount GetPropertyCount(const CMPIInstance* inst, CMPIStatus* rc) {
    return Guard(rc, [&] {
        const InstanceData& data = Data(inst);
        CMPICount count = 0;
        for (const NamedValue& property : data.instance.properties)
            if (data.Shows(property.name)) ++count;
        return count;
    });
}

// A property that a filter hides is ignored without an error, as servers do.
void Set(InstanceData& data, const char* name, const CMPIValue* value, CMPIType type) {
    const std::size_t index = IndexOf(data, name);
    const PropertyInfo& property = data.cls->properties[index];
    Value given = FromCmpi(value, type);
    if (given.type != CMPI_null && !property.Accepts(given.type))
        throw Failure(CMPI_RC_ERR_TYPE_MISMATCH, "The property '" + property.name + "' of '" +
                                                     data.cls->Name() +
                                                     "' is of another type than the value.");
    if (given.IsNull()) given.type = property.type;
    if (data.Shows(name)) data.instance.properties[index].value = std::move(given);
    data.touched.insert(index);
}

CMPIStatus SetProperty(const CMPIInstance* inst, const char* name, const CMPIValue* value,
                       CMPIType type) {
    return GuardStatus([&] {
        InstanceData& data = Data(inst);
        try {
            Set(data, name, value, type);
        } catch (const Failure& failure) {
            data.instance.refused.push_back(failure.status.text);
            throw;
        }
    });
}

CMPIStatus SetPropertyWithOrigin(const CMPIInstance* inst, const char* name, const CMPIValue* value,
                                 const CMPIType type,
                                 const char* /*origin: known from the class*/) {
    return SetProperty(inst, name, value, type);
}

CMPIObjectPath* GetObjectPath(const CMPIInstance* inst, CMPIStatus* rc) {
    return Guard(rc, [&] { return Make<CMPIObjectPath>({PathOf(Data(inst))}); });
}

CMPIStatus SetObjectPath(const CMPIInstance* inst, const CMPIObjectPath* op) {
    return GuardStatus([&] {
        InstanceData& data = Data(inst);
        const ObjectPath& path = Data(op).path;
        if (!mof::SameName(path.className, data.cls->Name()))
            throw Failure(CMPI_RC_ERR_INVALID_PARAMETER,
                          "The path of an instance of '" + data.cls->Name() +
                              "' cannot name the class '" + path.className + "'.");
        const InstanceData keys = NewInstance(*data.cls, path);
        data.instance.path.nameSpace = path.nameSpace;
        for (const NamedValue& key : path.keys) {
            const std::size_t index = IndexOf(data, key.name.c_str());
            data.instance.properties[index].value = keys.instance.properties[index].value;
        }
    });
}

void AddNames(std::set<std::string>& names, const char** list) {
    for (; list && *list; ++list) names.insert(mof::FoldedName(*list));
}

// The class's own keys stay as well as those of the list: an instance must keep its path.
CMPIStatus SetPropertyFilter(const CMPIInstance* inst, const char** properties,
                             const char** keyList) {
    return GuardStatus([&] {
        InstanceData& data = Data(inst);
        data.filter.reset();
        if (!properties) return;
        std::set<std::string> names;
        AddNames(names, properties);
        AddNames(names, keyList);
        for (const PropertyInfo& property : data.cls->properties)
            if (property.isKey) names.insert(mof::FoldedName(property.name));
        data.filter = std::move(names);
    });
}

}  // namespace

const CMPIInstanceFT ObjectType<CMPIInstance>::kTable = {
    .ftVersion = CMPIVersion200,
    .release = Release<CMPIInstance>,
    .clone = Clone<CMPIInstance>,
    .getProperty = GetProperty,
    .getPropertyAt = GetPropertyAt,
    .getPropertyCount = GetPropertyCount,
    .setProperty = SetProperty,
    .getObjectPath = GetObjectPath,
    .setPropertyFilter = SetPropertyFilter,
    .setObjectPath = SetObjectPath,
    .setPropertyWithOrigin = SetPropertyWithOrigin,
};

}  // namespace host
