#include "Fake_Objects.h"

#include <strings.h>

#include <cstring>

namespace fake {

namespace {

template <class Derived, class Base>
Derived& as(Base* object) {
    return *static_cast<Derived*>(const_cast<std::remove_const_t<Base>*>(object));
}

const CMPIData* find(const Named_Data& list, const char* name) {
    for (const auto& [key, data] : list) {
        if (strcasecmp(key.c_str(), name) == 0) return &data;
    }
    return nullptr;
}

CMPIData data_of(const CMPIValue* value, CMPIType type) {
    if (value == nullptr) return null_data(type);
    return {type, CMPI_goodValue, *value};
}

CMPIData at(Arena& arena, const Named_Data& list, CMPICount index, CMPIString** name) {
    if (name != nullptr) *name = arena.text(list[index].first);
    return list[index].second;
}

std::string joined(const char** names) {
    std::string text;
    for (; *names != nullptr; ++names) text += std::string(text.empty() ? "" : ",") + *names;
    return text;
}

const char* chars_of(const CMPIString* text, CMPIStatus*) { return as<Text>(text).text.c_str(); }

CMPIStringFT make_string_table(CMPIVersion version) {
    CMPIStringFT table{};
    table.ftVersion = version;
    table.getCharPtr = chars_of;
    return table;
}

CMPIArrayFT make_array_table(CMPIVersion version) {
    CMPIArrayFT table{};
    table.ftVersion = version;
    table.getSize = [](const CMPIArray* array, CMPIStatus*) {
        return static_cast<CMPICount>(as<Array>(array).elements.size());
    };
    table.getElementAt = [](const CMPIArray* array, CMPICount index, CMPIStatus*) {
        return as<Array>(array).elements.at(index);
    };
    table.setElementAt = [](const CMPIArray* array, CMPICount index, const CMPIValue* value,
                            CMPIType type) {
        as<Array>(array).elements.at(index) = data_of(value, type);
        return CMPIStatus{CMPI_RC_OK, nullptr};
    };
    return table;
}

CMPIObjectPathFT make_path_table(CMPIVersion version) {
    CMPIObjectPathFT table{};
    table.ftVersion = version;
    table.getNameSpace = [](const CMPIObjectPath* path, CMPIStatus*) -> CMPIString* {
        return as<Path>(path).arena->text(as<Path>(path).nameSpace);
    };
    table.getClassName = [](const CMPIObjectPath* path, CMPIStatus*) -> CMPIString* {
        return as<Path>(path).arena->text(as<Path>(path).className);
    };
    table.addKey = [](const CMPIObjectPath* path, const char* name, const CMPIValue* value,
                      CMPIType type) {
        as<Path>(path).with_key(name, data_of(value, type));
        return CMPIStatus{CMPI_RC_OK, nullptr};
    };
    table.getKeyCount = [](const CMPIObjectPath* path, CMPIStatus*) {
        return static_cast<CMPICount>(as<Path>(path).keys.size());
    };
    table.getKeyAt = [](const CMPIObjectPath* path, CMPICount index, CMPIString** name,
                        CMPIStatus*) {
        return at(*as<Path>(path).arena, as<Path>(path).keys, index, name);
    };
    return table;
}

CMPIInstanceFT make_instance_table(CMPIVersion version) {
    CMPIInstanceFT table{};
    table.ftVersion = version;
    table.getObjectPath = [](const CMPIInstance* instance, CMPIStatus*) -> CMPIObjectPath* {
        return as<Instance>(instance).path;
    };
    table.getProperty = [](const CMPIInstance* instance, const char* name, CMPIStatus* status) {
        const CMPIData* const data = find(as<Instance>(instance).properties, name);
        if (data == nullptr) status->rc = CMPI_RC_ERR_NO_SUCH_PROPERTY;
        return data == nullptr ? CMPIData{} : *data;
    };
    table.setProperty = [](const CMPIInstance* instance, const char* name, const CMPIValue* value,
                           CMPIType type) {
        as<Instance>(instance).with(name, data_of(value, type));
        return CMPIStatus{CMPI_RC_ERR_NO_SUCH_PROPERTY, nullptr};  // the adapter must not mind
    };
    table.setPropertyFilter = [](const CMPIInstance* instance, const char** properties,
                                 const char** keys) {
        as<Instance>(instance).filter = joined(properties) + " keys " + joined(keys);
        return CMPIStatus{CMPI_RC_OK, nullptr};
    };
    return table;
}

CMPIArgsFT make_args_table(CMPIVersion version) {
    CMPIArgsFT table{};
    table.ftVersion = version;
    table.addArg = [](const CMPIArgs* args, const char* name, const CMPIValue* value,
                      CMPIType type) {
        as<Args>(args).with(name, data_of(value, type));
        return CMPIStatus{CMPI_RC_OK, nullptr};
    };
    table.getArgAt = [](const CMPIArgs* args, CMPICount index, CMPIString** name, CMPIStatus*) {
        return at(*as<Args>(args).arena, as<Args>(args).arguments, index, name);
    };
    table.getArgCount = [](const CMPIArgs* args, CMPIStatus*) {
        return static_cast<CMPICount>(as<Args>(args).arguments.size());
    };
    return table;
}

CMPIDateTimeFT make_date_time_table(CMPIVersion version) {
    CMPIDateTimeFT table{};
    table.ftVersion = version;
    table.getStringFormat = [](const CMPIDateTime* dateTime, CMPIStatus*) -> CMPIString* {
        return as<Date_Time>(dateTime).arena->text(as<Date_Time>(dateTime).text);
    };
    return table;
}

CMPIEnumerationFT make_enumeration_table(CMPIVersion version) {
    CMPIEnumerationFT table{};
    table.ftVersion = version;
    table.hasNext = [](const CMPIEnumeration* list, CMPIStatus*) -> CMPIBoolean {
        return as<Enumeration>(list).position < as<Enumeration>(list).elements.size();
    };
    table.getNext = [](const CMPIEnumeration* list, CMPIStatus*) {
        return as<Enumeration>(list).elements.at(as<Enumeration>(list).position++);
    };
    return table;
}

CMPIStatus answer(const CMPIResult* result, const CMPIData& data, const std::string& text) {
    auto& target = as<Result>(result);
    if (target.refusal.rc != CMPI_RC_OK) return target.refusal;
    target.answers.push_back(text);
    target.values.push_back(data);
    return target.refusal;
}

CMPIResultFT make_result_table(CMPIVersion version) {
    CMPIResultFT table{};
    table.ftVersion = version;
    table.returnData = [](const CMPIResult* result, const CMPIValue* value, CMPIType type) {
        const CMPIData data = data_of(value, type);
        return answer(result, data, to_text(data));
    };
    table.returnInstance = [](const CMPIResult* result, const CMPIInstance* instance) {
        CMPIData data{CMPI_instance, CMPI_goodValue, {}};
        data.value.inst = const_cast<CMPIInstance*>(instance);
        return answer(result, data, to_text(instance));
    };
    table.returnObjectPath = [](const CMPIResult* result, const CMPIObjectPath* path) {
        CMPIData data{CMPI_ref, CMPI_goodValue, {}};
        data.value.ref = const_cast<CMPIObjectPath*>(path);
        return answer(result, data, to_text(path));
    };
    table.returnDone = [](const CMPIResult* result) {
        ++as<Result>(result).ends;
        return CMPIStatus{CMPI_RC_OK, nullptr};
    };
    return table;
}

std::string in_quotes(const std::string& text) { return '"' + text + '"'; }

std::string array_text(const Array& array) {
    std::string text;
    for (const CMPIData& element : array.elements) {
        text += (text.empty() ? "" : ",") + to_text(element);
    }
    return "[" + text + "]";
}

// The value without its type.
std::string value_text(const CMPIData& data) {
    if ((data.state & CMPI_nullValue) != 0) return "null";
    if ((data.type & CMPI_ARRAY) != 0) return array_text(as<Array>(data.value.array));
    switch (data.type) {
        case CMPI_boolean:
            return data.value.boolean != 0 ? "true" : "false";
        case CMPI_uint8:
            return std::to_string(data.value.uint8);
        case CMPI_sint8:
            return std::to_string(data.value.sint8);
        case CMPI_uint16:
            return std::to_string(data.value.uint16);
        case CMPI_sint16:
            return std::to_string(data.value.sint16);
        case CMPI_uint32:
            return std::to_string(data.value.uint32);
        case CMPI_sint32:
            return std::to_string(data.value.sint32);
        case CMPI_uint64:
            return std::to_string(data.value.uint64);
        case CMPI_sint64:
            return std::to_string(data.value.sint64);
        case CMPI_real32:
            return std::to_string(data.value.real32);
        case CMPI_real64:
            return std::to_string(data.value.real64);
        case CMPI_char16:
            return "U+" + std::to_string(data.value.char16);
        case CMPI_string:
            return in_quotes(as<Text>(data.value.string).text);
        case CMPI_dateTime:
            return as<Date_Time>(data.value.dateTime).text;
        case CMPI_ref:
            return in_quotes(to_text(data.value.ref));
        default:
            return "?";
    }
}

}  // namespace

Result::Result(CMPIVersion tableVersion)
    : CMPIResult{nullptr, &table}, table(make_result_table(tableVersion)) {}

Tables::Tables(CMPIVersion version)
    : string(make_string_table(version)),
      array(make_array_table(version)),
      path(make_path_table(version)),
      instance(make_instance_table(version)),
      args(make_args_table(version)),
      dateTime(make_date_time_table(version)),
      enumeration(make_enumeration_table(version)) {}

template <class Object>
Object* Arena::add(Object object) {
    auto shared = std::make_shared<Object>(std::move(object));
    const std::lock_guard guard(lock);
    objects.push_back(shared);
    return shared.get();
}

Text* Arena::text(const std::string& text) {
    return add(Text{{nullptr, &tables.string}, this, text});
}

Path* Arena::path(const std::string& nameSpace, const std::string& className) {
    return add(Path{{nullptr, &tables.path}, this, nameSpace, className, {}});
}

Instance* Arena::instance(Path* path) {
    return add(Instance{{nullptr, &tables.instance}, this, path, {}, ""});
}

Array* Arena::array(CMPIType type) { return add(Array{{nullptr, &tables.array}, this, type, {}}); }

Args* Arena::args() { return add(Args{{nullptr, &tables.args}, this, {}}); }

Date_Time* Arena::date_time(const std::string& text) {
    return add(Date_Time{{nullptr, &tables.dateTime}, this, text});
}

Enumeration* Arena::enumeration(std::vector<CMPIData> elements) {
    return add(Enumeration{{nullptr, &tables.enumeration}, this, std::move(elements), 0});
}

CMPIData Arena::string_data(const std::string& value) {
    CMPIData data{CMPI_string, CMPI_goodValue, {}};
    data.value.string = text(value);
    return data;
}

CMPIData Arena::chars_data(const char* value) {
    CMPIData data{CMPI_chars, CMPI_goodValue, {}};
    data.value.chars = const_cast<char*>(value);
    return data;
}

CMPIData Arena::ref_data(Path* value) {
    CMPIData data{CMPI_ref, CMPI_goodValue, {}};
    data.value.ref = value;
    return data;
}

CMPIData Arena::instance_data(Instance* value) {
    CMPIData data{CMPI_instance, CMPI_goodValue, {}};
    data.value.inst = value;
    return data;
}

CMPIData Arena::date_time_data(const std::string& value) {
    CMPIData data{CMPI_dateTime, CMPI_goodValue, {}};
    data.value.dateTime = date_time(value);
    return data;
}

CMPIData Arena::array_data(CMPIType type, std::vector<CMPIData> elements) {
    CMPIData data{static_cast<CMPIType>(CMPI_ARRAY | type), CMPI_goodValue, {}};
    Array* const list = array(type);
    list->elements = std::move(elements);
    data.value.array = list;
    return data;
}

CMPIData null_data(CMPIType type) { return {type, CMPI_nullValue, {}}; }

CMPIData boolean_data(bool value) {
    CMPIData data{CMPI_boolean, CMPI_goodValue, {}};
    data.value.boolean = value;
    return data;
}

CMPIData char16_data(char16_t value) {
    CMPIData data{CMPI_char16, CMPI_goodValue, {}};
    data.value.char16 = value;
    return data;
}

CMPIData real32_data(float value) {
    CMPIData data{CMPI_real32, CMPI_goodValue, {}};
    data.value.real32 = value;
    return data;
}

CMPIData real64_data(double value) {
    CMPIData data{CMPI_real64, CMPI_goodValue, {}};
    data.value.real64 = value;
    return data;
}

// The machine is little-endian: the low bytes are the narrower member.
CMPIData integer_data(CMPIType type, long long value) {
    CMPIData data{type, CMPI_goodValue, {}};
    data.value.sint64 = value;
    return data;
}

std::string to_text(const CMPIData& data) { return value_text(data); }

std::string to_text(const CMPIObjectPath* path) {
    const Path& source = as<Path>(path);
    std::string text = source.nameSpace + ":" + source.className;
    const char* separator = ".";
    for (const auto& [name, data] : source.keys) {
        text += separator + name + "=" + value_text(data);
        separator = ",";
    }
    return text;
}

std::string to_text(const CMPIInstance* instance) {
    const Instance& source = as<Instance>(instance);
    std::string text;
    for (const auto& [name, data] : source.properties) {
        text += (text.empty() ? "" : ", ") + name + "=" + value_text(data);
    }
    const std::string filter = source.filter.empty() ? "" : " filter " + source.filter;
    return to_text(source.path) + " {" + text + "}" + filter;
}

}  // namespace fake
