// Which parts of instances a client asks for.
#pragma once

#include <cimxml/codec/ClassWriter.h>
#include <cimxml/operations/Parameters.h>

#include <optional>
#include <string>
#include <vector>

namespace cimxml {

// LocalOnly counts only where a client says TRUE. The standard's default is TRUE, too, but has long
// been withdrawn in practice: clients that say nothing expect all properties.
class ObjectDetail {
public:
    explicit ObjectDetail(const Parameters& parameters)
        : listed(parameters.Texts("PropertyList")),
          detail{.localOnly = parameters.Flag("LocalOnly", false),
                 .includeQualifiers = parameters.Flag("IncludeQualifiers", false),
                 .includeClassOrigin = parameters.Flag("IncludeClassOrigin", false),
                 .properties = listed ? &*listed : nullptr} {}

    ObjectDetail(const ObjectDetail&) = delete;
    ObjectDetail& operator=(const ObjectDetail&) = delete;

    const Detail& Get() const { return detail; }

private:
    const std::optional<std::vector<std::string>> listed;
    const Detail detail;
};

}  // namespace cimxml
