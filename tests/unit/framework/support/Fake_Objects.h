// A CIM server's objects in memory, with the few table entries that the adapter may call; the
// others are null, as servers have them.
#pragma once

#include <cmpi/cmpi.h>

#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace fake {

class Arena;

using Named_Data = std::vector<std::pair<std::string, CMPIData>>;

struct Text : CMPIString {
    Arena* arena;
    std::string text;
};

struct Path : CMPIObjectPath {
    Arena* arena;
    std::string nameSpace;
    std::string className;
    Named_Data keys;

    Path* with_key(const char* name, const CMPIData& data) {
        keys.emplace_back(name, data);
        return this;
    }
};

struct Instance : CMPIInstance {
    Arena* arena;
    Path* path;
    Named_Data properties;
    std::string filter;  // the last property filter: "wanted,... keys ..."

    Instance* with(const char* name, const CMPIData& data) {
        properties.emplace_back(name, data);
        return this;
    }
};

struct Array : CMPIArray {
    Arena* arena;
    CMPIType type;
    std::vector<CMPIData> elements;
};

struct Args : CMPIArgs {
    Arena* arena;
    Named_Data arguments;

    Args* with(const char* name, const CMPIData& data) {
        arguments.emplace_back(name, data);
        return this;
    }
};

struct Date_Time : CMPIDateTime {
    Arena* arena;
    std::string text;
};

struct Enumeration : CMPIEnumeration {
    Arena* arena;
    std::vector<CMPIData> elements;
    std::size_t position = 0;
};

// What a client got.
class Result : public CMPIResult {
    const CMPIResultFT table;

public:
    std::vector<std::string> answers;  // instances, paths and return values, as text
    std::vector<CMPIData> values;      // the same
    int ends = 0;
    CMPIStatus refusal{CMPI_RC_OK, nullptr};  // the answer to every instance and path

    explicit Result(CMPIVersion tableVersion = 0);
    Result(const Result&) = delete;
    Result& operator=(const Result&) = delete;
};

// The function tables of the other objects, which all state one version.
struct Tables {
    explicit Tables(CMPIVersion version);

    CMPIStringFT string;
    CMPIArrayFT array;
    CMPIObjectPathFT path;
    CMPIInstanceFT instance;
    CMPIArgsFT args;
    CMPIDateTimeFT dateTime;
    CMPIEnumerationFT enumeration;
};

// Owns the objects: they live as long as it does.
class Arena {
public:
    explicit Arena(CMPIVersion tableVersion = 0) : tables(tableVersion) {}
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    Text* text(const std::string& text);
    Path* path(const std::string& nameSpace, const std::string& className);
    Instance* instance(Path* path);
    Array* array(CMPIType type);
    Args* args();
    Date_Time* date_time(const std::string& text);
    Enumeration* enumeration(std::vector<CMPIData> elements);

    // Values with their type, ready to be keys, properties and arguments.
    CMPIData string_data(const std::string& value);
    CMPIData chars_data(const char* value);
    CMPIData ref_data(Path* value);
    CMPIData instance_data(Instance* value);
    CMPIData date_time_data(const std::string& value);
    CMPIData array_data(CMPIType type, std::vector<CMPIData> elements);

private:
    template <class Object>
    Object* add(Object object);

    const Tables tables;
    std::mutex lock;  // guards `objects`
    std::vector<std::shared_ptr<void>> objects;
};

CMPIData null_data(CMPIType type);
CMPIData boolean_data(bool value);
CMPIData char16_data(char16_t value);
CMPIData real32_data(float value);
CMPIData real64_data(double value);
CMPIData integer_data(CMPIType type, long long value);

// Objects as text: `root/acme:ACME_Fan.Id="a",Slot=3`; an instance's properties follow in braces,
// as
// `{Caption="x" string, Speed=null uint16}`.
std::string to_text(const CMPIObjectPath* path);
std::string to_text(const CMPIInstance* instance);
std::string to_text(const CMPIData& data);

}  // namespace fake
