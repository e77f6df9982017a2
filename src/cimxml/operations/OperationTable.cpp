#include <cimxml/operations/AssociationOperations.h>
#include <cimxml/operations/ClassOperations.h>
#include <cimxml/operations/InstanceOperations.h>
#include <cimxml/operations/OperationTable.h>
#include <cimxml/operations/PullOperations.h>
#include <host/Status.h>
#include <mof/Names.h>

#include <algorithm>
#include <iterator>

namespace cimxml {

namespace {

// An operation that opens an enumeration: its own parameters, and those that all of them have.
Operation Opens(std::string_view name, ParameterNames parameters, void (*carryOut)(const Call&)) {
    for (const char* const common : {"FilterQueryLanguage", "FilterQuery", "OperationTimeout",
                                     "ContinueOnError", "MaxObjectCount"})
        parameters.push_back(common);
    return {name, std::move(parameters), carryOut};
}

const Operation kOperations[] = {
    {"EnumerateClasses",
     {"ClassName", "DeepInheritance", "LocalOnly", "IncludeQualifiers", "IncludeClassOrigin"},
     EnumerateClasses},
    {"EnumerateClassNames", {"ClassName", "DeepInheritance"}, EnumerateClassNames},
    {"GetClass",
     {"ClassName", "LocalOnly", "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"},
     GetClass},
    {"EnumerateQualifiers", {}, EnumerateQualifiers},
    {"GetQualifier", {"QualifierName"}, GetQualifier},
    {"EnumerateInstances",
     {"ClassName", "LocalOnly", "DeepInheritance", "IncludeQualifiers", "IncludeClassOrigin",
      "PropertyList"},
     EnumerateInstances},
    {"EnumerateInstanceNames", {"ClassName"}, EnumerateInstanceNames},
    {"GetInstance",
     {"InstanceName", "LocalOnly", "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"},
     GetInstance},
    {"Associators",
     {"ObjectName", "AssocClass", "ResultClass", "Role", "ResultRole", "IncludeQualifiers",
      "IncludeClassOrigin", "PropertyList"},
     Associators},
    {"AssociatorNames",
     {"ObjectName", "AssocClass", "ResultClass", "Role", "ResultRole"},
     AssociatorNames},
    {"References",
     {"ObjectName", "ResultClass", "Role", "IncludeQualifiers", "IncludeClassOrigin",
      "PropertyList"},
     References},
    {"ReferenceNames", {"ObjectName", "ResultClass", "Role"}, ReferenceNames},
    Opens("OpenEnumerateInstances",
          {"ClassName", "DeepInheritance", "IncludeClassOrigin", "PropertyList"},
          OpenEnumerateInstances),
    Opens("OpenEnumerateInstancePaths", {"ClassName"}, OpenEnumerateInstancePaths),
    Opens("OpenAssociatorInstances",
          {"InstanceName", "AssocClass", "ResultClass", "Role", "ResultRole", "IncludeClassOrigin",
           "PropertyList"},
          OpenAssociatorInstances),
    Opens("OpenAssociatorInstancePaths",
          {"InstanceName", "AssocClass", "ResultClass", "Role", "ResultRole"},
          OpenAssociatorInstancePaths),
    Opens("OpenReferenceInstances",
          {"InstanceName", "ResultClass", "Role", "IncludeClassOrigin", "PropertyList"},
          OpenReferenceInstances),
    Opens("OpenReferenceInstancePaths", {"InstanceName", "ResultClass", "Role"},
          OpenReferenceInstancePaths),
    {"PullInstancesWithPath", {"EnumerationContext", "MaxObjectCount"}, PullInstancesWithPath},
    {"PullInstancePaths", {"EnumerationContext", "MaxObjectCount"}, PullInstancePaths},
    {"PullInstances", {"EnumerationContext", "MaxObjectCount"}, PullInstances},
    {"CloseEnumeration", {"EnumerationContext"}, CloseEnumeration, false},
};

}  // namespace

const Operation& OperationNamed(const std::string& name) {
    const auto* const found =
        std::find_if(std::begin(kOperations), std::end(kOperations),
                     [&](const Operation& one) { return mof::SameName(one.name, name); });
    if (found == std::end(kOperations))
        throw host::Failure(CMPI_RC_ERR_NOT_SUPPORTED,
                            "This server has no operation '" + name + "'.");
    return *found;
}

}  // namespace cimxml
