// A CIM-XML request as data.
#pragma once

#include <host/Value.h>

#include <string>
#include <variant>
#include <vector>

namespace cimxml {

struct ClassName {
    std::string name;
};

// A value that this server does not use, such as a whole instance.
struct Unread {};

// A parameter of an intrinsic method: NULL, a text, texts, the name of a class or of an instance
// (the path has no namespace).
struct Parameter {
    using Data = std::variant<std::monostate, std::string, std::vector<std::string>, ClassName,
                              host::ObjectPath, Unread>;

    std::string name;
    Data value;
};

struct Request {
    std::string messageId;
    bool isIntrinsic = true;
    std::string method;
    std::string nameSpace;

    // Of an intrinsic method.
    std::vector<Parameter> parameters = {};

    // Of an extrinsic method: the class or instance, and the arguments, as texts where the type is
    // for the class to say.
    host::ObjectPath target = {};
    std::vector<host::NamedValue> arguments = {};
};

}  // namespace cimxml
