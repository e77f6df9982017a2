#include <framework/adapter/Instance_Reader.h>
#include <framework/adapter/Request_Error.h>
#include <framework/adapter/Value_Reader.h>
#include <framework/adapter/cmpi_types.h>
#include <framework/adapter/objects.h>
#include <framework/visit.h>

namespace cimple {

namespace {

// The class of instances whose own class is unknown here.
constexpr Meta_Class kBareClass = {"Instance",
                                   0,
                                   nullptr,
                                   nullptr,
                                   0,
                                   nullptr,
                                   0,
                                   sizeof(Instance),
                                   &construct_as<Instance>,
                                   &destruct_as<Instance>,
                                   nullptr};

[[noreturn]] void refuse(const std::string& sentence) {
    throw Request_Error(CMPI_RC_ERR_INVALID_PARAMETER, sentence);
}

std::string quoted(const char* name) { return '"' + std::string(name) + '"'; }

// The class to make an instance of that the server calls `name`.
const Meta_Class& class_for(const Meta_Repository* repository, const Meta_Class* declared,
                            const char* name) {
    const Meta_Class* const known = repository == nullptr ? nullptr : find_class(*repository, name);
    if (known == nullptr) return declared == nullptr ? kBareClass : *declared;
    if (declared != nullptr && !is_subclass(declared, known)) {
        refuse("the class " + std::string(name) + " does not derive from " + declared->name + ".");
    }
    return *known;
}

Instance_Ptr read_endpoint(const Instance& owner, const Meta_Feature& feature,
                           const CMPIData& data) {
    const Meta_Repository* const repository = feature.reference_class->repository;
    if (data.type == CMPI_ref) {
        return read_reference(repository, feature.reference_class, data.value.ref);
    }
    if (data.type == CMPI_instance) {
        return read_instance(repository, feature.reference_class, data.value.inst);
    }
    refuse("the value of " + quoted(feature.name) + " of " + owner.meta_class->name +
           " is not a reference.");
}

void set_feature(Instance& instance, const Meta_Feature& feature, const CMPIData& data) {
    if (is_null(data)) return;
    if (is_reference(feature)) {
        set_reference_at(instance, feature, read_endpoint(instance, feature, data).release());
    } else if (!read_property(instance, feature, data)) {
        refuse("the value of " + quoted(feature.name) + " of " + instance.meta_class->name +
               " does not fit its type " + type_name(feature) + ".");
    }
}

// Calls set(name, data) for each key of the path.
template <class Set>
void for_each_key(const CMPIObjectPath* path, Set set) {
    CMPIStatus status{CMPI_RC_OK, nullptr};
    const CMPICount count = path->ft->getKeyCount(path, &status);
    for (CMPICount i = 0; i < count; ++i) {
        CMPIString* name = nullptr;
        const CMPIData data = path->ft->getKeyAt(path, i, &name, &status);
        set(text_of(name), data);
    }
}

// A key that the class does not have is ignored: the server may have a newer class.
void set_keys(Instance& instance, const CMPIObjectPath* path) {
    for_each_key(path, [&](const char* name, const CMPIData& data) {
        const Meta_Feature* const feature = find_feature(*instance.meta_class, name);
        if (feature != nullptr && is_null_at(instance, *feature)) {
            set_feature(instance, *feature, data);
        }
    });
}

// Servers write keys that have no value as empty texts, and their form of the class may have keys
// that it lacks here.
bool tells_something(const CMPIData& key) {
    if (is_null(key)) return false;
    return key.type != CMPI_string || *text_of(key.value.string) != '\0';
}

void refuse_unknown_keys(const Meta_Class& meta_class, const CMPIObjectPath* path) {
    for_each_key(path, [&](const char* name, const CMPIData& key) {
        if (find_feature(meta_class, name) == nullptr && tells_something(key)) {
            refuse("the class " + std::string(meta_class.name) + " has no key " + quoted(name) +
                   ".");
        }
    });
}

Instance_Ptr make(const Meta_Class& meta_class, const CMPIObjectPath* path) {
    Instance_Ptr instance(create(&meta_class, false));
    instance->name_space = name_space_of(path);
    return instance;
}

// The parameter that an argument goes to, or null when it is for output only.
const Meta_Feature* input_parameter(const Meta_Class& method, const char* name) {
    const Meta_Feature* const feature = find_feature(method, name);
    if (feature == nullptr) {
        refuse("the method " + std::string(method.name) + " has no parameter " + quoted(name) +
               ".");
    }
    return (feature->flags & FEATURE_IN) != 0 ? feature : nullptr;
}

}  // namespace

Instance_Ptr read_target(const Meta_Class& meta_class, const CMPIObjectPath* path) {
    refuse_unknown_keys(meta_class, path);
    Instance_Ptr instance = make(meta_class, path);
    set_keys(*instance, path);
    return instance;
}

Instance_Ptr read_reference(const Meta_Repository* repository, const Meta_Class* declared,
                            const CMPIObjectPath* path) {
    Instance_Ptr instance = make(class_for(repository, declared, class_name_of(path)), path);
    set_keys(*instance, path);
    return instance;
}

Instance_Ptr read_instance(const Meta_Repository* repository, const Meta_Class* declared,
                           const CMPIInstance* source) {
    CMPIStatus status{CMPI_RC_OK, nullptr};
    const CMPIObjectPath* const path = source->ft->getObjectPath(source, &status);
    if (path == nullptr) status.rc = CMPI_RC_ERR_FAILED;
    check_server(status, "tell an instance's object path");
    Instance_Ptr instance = make(class_for(repository, declared, class_name_of(path)), path);
    for (const Meta_Feature& feature : features_of(*instance->meta_class)) {
        status = {CMPI_RC_OK, nullptr};
        const CMPIData data = source->ft->getProperty(source, feature.name, &status);
        if (status.rc == CMPI_RC_OK) set_feature(*instance, feature, data);
    }
    set_keys(*instance, path);
    return instance;
}

Instance_Ptr read_arguments(const Meta_Class& method, const CMPIArgs* arguments) {
    Instance_Ptr record(create(&method, false));
    if (arguments == nullptr) return record;
    CMPIStatus status{CMPI_RC_OK, nullptr};
    const CMPICount count = arguments->ft->getArgCount(arguments, &status);
    for (CMPICount i = 0; i < count; ++i) {
        CMPIString* name = nullptr;
        const CMPIData data = arguments->ft->getArgAt(arguments, i, &name, &status);
        const Meta_Feature* const feature = input_parameter(method, text_of(name));
        if (feature != nullptr) set_feature(*record, *feature, data);
    }
    return record;
}

}  // namespace cimple
