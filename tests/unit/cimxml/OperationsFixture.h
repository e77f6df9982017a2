// The operations in front of a host with the host tests' module, and of root/interop.
#pragma once

#include <cimxml/operations/InteropNameSpace.h>
#include <cimxml/operations/Operations.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <host/Host.h>

#include <string>
#include <vector>

#include "ArrayOf.h"

namespace cimxml {

class OperationsTest : public testing::Test {
protected:
    // The answer without what stands around it: "<IRETURNVALUE>…" or "<ERROR …".
    std::string Call(const std::string& operation, std::vector<Parameter> parameters = {},
                     const std::string& nameSpace = "root/test") const;
    std::string Invoke(const host::ObjectPath& target, const std::string& method,
                       std::vector<host::NamedValue> arguments = {}) const;

    // The values of the attribute in every element of that name, in order.
    static std::vector<std::string> All(const std::string& xml, const std::string& element,
                                        const std::string& attribute);

    // The CODE and DESCRIPTION of an error; "" for any other answer.
    static std::string ErrorIn(const std::string& xml);

    static host::ObjectPath Thing(const std::string& name);

    host::Host host{{HOST_TEST_MODULE, std::string(HOST_TEST_DATA) + "/test.mof",
                     std::string(HOST_TEST_DATA) + "/test.reg"}};
    const Operations operations = MakeOperations();

private:
    Operations MakeOperations();
};

inline Parameter Flag(const std::string& name, bool flag) {
    return {name, std::string(flag ? "TRUE" : "FALSE")};
}

inline Parameter Class(const std::string& name, const std::string& parameter = "ClassName") {
    return {parameter, ClassName{name}};
}

inline Parameter List(const std::vector<std::string>& names) { return {"PropertyList", names}; }

}  // namespace cimxml
