// A provider's answer to a request, as data that outlive the request.
#pragma once

#include <Fake_Objects.h>

#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

// An object path with keys that are texts.
struct Path {
    std::string className;
    std::vector<std::pair<std::string, std::string>> keys;
};

// Values are texts: of a string in quotes, of a path as "namespace:Class.Key=value", "null".
struct Object {
    std::string path;
    std::map<std::string, std::string> properties;

    // "absent" for a property that it does not have.
    std::string operator[](const std::string& property) const;
};

struct Reply {
    CMPIStatus status{CMPI_RC_OK, nullptr};  // without a text
    std::string text;
    std::vector<Object> instances;
    std::vector<std::string> paths;
    std::vector<std::string> values;         // returned by a method
    std::map<std::string, std::string> out;  // the method's output arguments
    int ends = 0;                            // how often the result was ended

    bool IsOk() const { return status.rc == CMPI_RC_OK && ends == 1; }
};

Object ToObject(const fake::Instance& instance);

// Code and text, as "7: text": for messages of failed tests, too.
std::string ToText(const Reply& reply);
std::ostream& operator<<(std::ostream& out, const Reply& reply);
