#include <host/objects/Objects.h>
#include <host/schema/TypedValue.h>
#include <mof/Names.h>

namespace host {

namespace {

// Every property of the class, NULL or with its default value.
InstanceData WithoutValues(const ClassInfo& cls, const std::string& nameSpace, bool withDefaults) {
    InstanceData data{{{nameSpace, cls.Name(), {}}, {}}, &cls};
    for (const PropertyInfo& property : cls.properties)
        data.instance.properties.push_back(
            {property.name, withDefaults ? property.defaultValue : Value{property.type, {}}});
    return data;
}

// Stores values that a client or a path gave. They are typed by the class.
void StoreTyped(InstanceData& data, const std::vector<NamedValue>& values) {
    for (const NamedValue& given : values) {
        const PropertyInfo* const property = data.cls->FindProperty(given.name);
        if (!property)
            throw Failure(
                CMPI_RC_ERR_NO_SUCH_PROPERTY,
                "The class '" + data.cls->Name() + "' has no property '" + given.name + "'.");
        const CMPIType type =
            property->Accepts(given.value.type) ? given.value.type : property->type;
        auto typed = Typed(given.value, type);
        if (!typed)
            throw Failure(CMPI_RC_ERR_TYPE_MISMATCH,
                          "The value of the property '" + property->name + "' of the class '" +
                              data.cls->Name() + "' is of a wrong type.");
        const auto index = static_cast<std::size_t>(property - data.cls->properties.data());
        data.instance.properties[index].value = std::move(*typed);
    }
}

}  // namespace

bool InstanceData::Shows(const std::string& property) const {
    return !filter || filter->contains(mof::FoldedName(property));
}

InstanceData NewInstance(const ClassInfo& cls, const ObjectPath& path) {
    InstanceData data = WithoutValues(cls, path.nameSpace, true);
    StoreTyped(data, path.keys);
    return data;
}

InstanceData Imported(const ClassRepository& classes, const Instance& instance) {
    const ClassInfo* const cls = classes.Find(instance.path.className);
    if (!cls)
        throw Failure(CMPI_RC_ERR_INVALID_CLASS,
                      "There is no class '" + instance.path.className + "'.");
    InstanceData data = WithoutValues(*cls, instance.path.nameSpace, false);
    StoreTyped(data, instance.path.keys);
    StoreTyped(data, instance.properties);
    return data;
}

Instance Exported(const InstanceData& data) {
    Instance instance{.path = PathOf(data), .properties = {}, .refused = data.instance.refused};
    for (std::size_t index = 0; index < data.instance.properties.size(); ++index) {
        const NamedValue& property = data.instance.properties[index];
        if (!data.Shows(property.name)) continue;
        instance.properties.push_back(property);
        if (!data.touched.contains(index)) instance.untouched.push_back(property.name);
    }
    return instance;
}

ObjectPath PathOf(const InstanceData& data) {
    ObjectPath path = data.instance.path;
    for (std::size_t index = 0; index < data.cls->properties.size(); ++index) {
        const NamedValue& property = data.instance.properties[index];
        if (data.cls->properties[index].isKey && !property.value.IsNull())
            path.keys.push_back(property);
    }
    return path;
}

}  // namespace host
