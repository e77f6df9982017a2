// One call of an operation: what it works on and where its result goes.
#pragma once

#include <cimxml/codec/XmlWriter.h>
#include <cimxml/operations/EnumerationSessions.h>
#include <cimxml/operations/NameSpace.h>
#include <cimxml/operations/Parameters.h>

#include <string>
#include <vector>

namespace cimxml {

struct Call {
    const NameSpace& nameSpace;
    const Parameters& parameters;
    const std::string& hostName;  // how the client calls this server
    EnumerationSessions& sessions;
    XmlWriter& xml;                      // takes the content of IRETURNVALUE
    std::vector<host::NamedValue>& out;  // takes the output parameters
};

// The class that a client names. Throws host::Failure with the code when there is none.
const host::ClassInfo& ClassNamed(const NameSpace& nameSpace, const std::string& name,
                                  CMPIrc whenUnknown = CMPI_RC_ERR_INVALID_CLASS);

// A path that a client gives, in the namespace and with the class as declared. A key without a name
// is that of a class with one key. Throws host::Failure for an unknown class, and for a key without
// a name where the class has several.
host::ObjectPath Located(const NameSpace& nameSpace, host::ObjectPath path);

// The answer, or its status thrown as host::Failure.
template <class Answer>
Answer Checked(Answer answer) {
    if (!answer.status.IsOk()) throw host::Failure(answer.status);
    return answer;
}

}  // namespace cimxml
